#!/usr/bin/env bash
# All tests under the address and undefined-behaviour sanitizers, as ./test --sanitize runs them.
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.."
exec ./test --sanitize

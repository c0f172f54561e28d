// The vocabulary's names for the values of the record, for scripts and tests.
#pragma once

#include <span>
#include <string_view>

#include "state/program.h"

namespace gridwright {

struct FieldName {
  std::string_view name;
  int (*read)(const Program&);
};

/// All names, in the order of the record.
std::span<const FieldName> fieldNames();

/// Whether a wandering walker leaves the field alone, whatever it meets: its changes come from a person
/// or end the wandering.
bool isSteady(const FieldName& field);

/// The field of a name, or null.
const FieldName* fieldNamed(std::string_view name);

}  // namespace gridwright

// Pictures for other programs, for both tenants.
#pragma once

#include <filesystem>

#include "canvas/outcome.h"
#include "state/export_panel.h"

namespace gridwright {

/// Writes a picture as a PNG, or as a PDF of one page, by way of a file beside it. A PDF needs an application
/// object where its page has words.
/// \returns a Fault when a byte was refused, or what bears the name is no plain file: that stays as it was.
Outcome<Done> writePictureFile(const PictureFile& wanted, const std::filesystem::path& path);

}  // namespace gridwright

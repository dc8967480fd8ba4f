#pragma once

#include "cli/Command.h"
#include "cli/Options.h"
#include "render/picture/PictureFiles.h"

namespace lobegraph {

/// Writes a picture for each file, by the ending of its name. A file that cannot be plotted is named on
/// standard error and the others go on.
/// @return the program's exit code
int RunRender(const RenderRequest& request, const CommandParts& parts, PictureFiles& pictures);

}  // namespace lobegraph

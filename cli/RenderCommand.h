#pragma once

#include <string>

#include "cli/Command.h"
#include "cli/Options.h"
#include "cli/Picture.h"

namespace lobegraph {

/// Pictures that need the toolkit's fonts; made when the first one is asked for.
class PictureFiles {
 public:
  virtual ~PictureFiles() = default;
  /// The bytes of a PNG file. @param width,height pixels; 0: one for each unit
  virtual std::string Png(const Picture& picture, int width, int height) = 0;
  /// The bytes of a PDF file of one page.
  virtual std::string Pdf(const Picture& picture) = 0;
};

/// Writes a picture for each file, by the ending of its name. A file that cannot be plotted is named on
/// standard error and the others go on.
/// @return the program's exit code
int RunRender(const RenderRequest& request, const CommandParts& parts, PictureFiles& pictures);

}  // namespace lobegraph

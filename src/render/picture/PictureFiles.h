#pragma once

#include <string>

#include "render/picture/Picture.h"

namespace lobegraph {

/// Pictures that need the toolkit's fonts.
class PictureFiles {
 public:
  virtual ~PictureFiles() = default;
  /// The bytes of a PNG file. @param width,height pixels; 0: one for each unit
  virtual std::string Png(const Picture& picture, int width, int height) = 0;
  /// The bytes of a PDF file of one page.
  virtual std::string Pdf(const Picture& picture) = 0;
};

}  // namespace lobegraph

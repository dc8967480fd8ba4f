#pragma once

#include <span>
#include <string>
#include <string_view>

#include "app/parts/AppParts.h"
#include "app/plot/PlotBoard.h"
#include "render/picture/PictureFiles.h"

namespace lobegraph {

/// A kind of file that a picture is saved as.
struct PictureKind {
  std::string_view Name = {};
  std::string_view Ending = {};
  int PixelsPerUnit = 0;  ///< of a bitmap; 0: a drawing of vectors
};
std::span<const PictureKind> PictureKinds();

/// Plot, angles, legend and description as a picture, without the controls.
class PictureCommands {
 public:
  /// @param files none: there is nothing to draw pictures with
  PictureCommands(const AppParts& parts, const PlotBoard& board, PictureFiles* files)
      : parts_(parts), board_(board), files_(files) {}

  /// Whether there is a pattern to see. Else the line below the plot says so.
  bool Ready() const;
  Picture Shown() const { return board_.Shown(); }
  /// Under a name that is asked for, in place of an older file only when the user agrees.
  void Save();

 private:
  void Write(const std::string& path, const PictureKind& kind);
  std::string BytesOf(const PictureKind& kind) const;

  AppParts parts_;
  const PlotBoard& board_;
  PictureFiles* files_;
};

}  // namespace lobegraph

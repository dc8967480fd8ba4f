#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/base/FileAccess.h"
#include "data/base/RunTimeError.h"
#include "data/record/ReadingsRecord.h"
#include "processing/session/PatternCommands.h"

namespace lobegraph {

/// A command of the window that changes the readings or their orientation.
enum class Transform { Smooth, Reverse, DeSpike, Orient, Original };

/// The controls and settings that a pattern meets, as a user would have set them before and after loading it.
struct SessionOptions {
  PlotScale Scale = PlotScale::Logarithmic;
  bool LinearMode = false;  ///< the rectangular drawing
  bool Calibrate = false;
  bool Table = false;  ///< a CSV file has several columns
  float PeakInputLevel = 1000.F;
  std::int16_t SpikeDetectLevel = 50;
  std::optional<std::string> txtRotate =
      std::nullopt;  ///< typed after the load, with Enter; none: not touched
  std::optional<std::string> txtTrimFront = std::nullopt;
  std::optional<std::string> txtTrimEnd = std::nullopt;
  std::vector<Transform> Apply = {};  ///< then these, in their order
};

/// One pattern on its way through the program, with everything that the window would hold and show of it.
/// Nothing here differs from the window; a test drives both.
class PatternSession : private PatternFront {
 public:
  /// @param overlayScale the scale of the plot that this pattern is drawn over; none: its own counts
  explicit PatternSession(SessionOptions options, std::optional<float> overlayScale = std::nullopt);

  /// Loads, types, applies. Never throws for a bad file: see Error.
  void Run(FileAccess& files, const std::string& path);

  const ReadingsRecord& Record() const { return record_; }
  /// The last redraw.
  const PlotResult& Plot() const { return plot_; }
  /// The texts of the boxes that came up, in order.
  const std::vector<std::string>& Messages() const { return messages_; }
  /// The file could not be read whole, or what the last command made of it cannot be plotted.
  const std::optional<RunTimeError>& Error() const { return error_; }
  PlotTexts Boxes() const override { return boxes_; }
  const std::string& txtAngle() const { return txtAngle_; }
  const std::string& txtGain() const { return txtGain_; }
  float BeamwidthDeg() const { return beamwidthDeg_; }
  /// Text that recalculating the gain by integration would now put in its box; none when it leaves the box
  /// alone.
  std::optional<std::string> IntegratedGainText() const;
  PlotOptions Options() const override;

 private:
  using Action = std::function<void()>;
  bool Guarded(const char* procedure, const Action& action);
  void Report(const RunTimeError& error, const char* procedure);
  void Load(FileAccess& files, const std::string& path);
  void Type();
  void Apply(Transform transform);
  void ShowOriginal();
  void ShowRecord();
  void SetBox(PlotBox box, const std::string& text) override;
  void ShowMessage(const std::string& text) override { messages_.push_back(text); }
  void ShowPlotFields() override;
  void ShowPlot(const PlotResult& plot) override;
  PlotResult ReDraw() override;

  SessionOptions options_;
  std::optional<float> overlayScale_;
  ReadingsRecord record_;
  PlotResult plot_;
  PlotTexts boxes_;
  int slider1_;
  std::vector<std::string> messages_;
  std::optional<RunTimeError> error_;
  bool halfLoaded_ = false;
  std::string txtAngle_ = "Angle";
  std::string txtGain_ = "Gain";
  float beamwidthDeg_ = 0.F;
};

}  // namespace lobegraph

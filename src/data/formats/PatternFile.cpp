#include "data/formats/PatternFile.h"

#include <algorithm>

#include "data/base/Numbers.h"
#include "data/base/TextEncoding.h"
#include "data/formats/FieldReader.h"

namespace lobegraph {
namespace {

constexpr int kLastWritten = 359;

std::string PeakWarning(float reading, float peakInputLevel) {
  return "LBG030 Warning - this file contains a peak input level value of" + SignedPlaceText(reading) +
         "\r\nThis is higher than your sound card setup for peak input level of" +
         SignedPlaceText(peakInputLevel) +
         "\r\nAutomatic orientation of the plot and -3dB points may be incorrect."
         "\r\nIncrease your peak input level value in the Settings screen to see"
         "\r\nthe plot without any distortion.";
}

void ReadReadings(FieldReader& fields, ReadingsRecord& record) {
  record.NumReadings = fields.NextInteger();
  record.ReadingCount = record.NumReadings;
  for (int i = 0; i <= kLastWritten; ++i) record.Readings(i) = 0.F;
  for (int i = 0; i <= record.NumReadings; ++i) {
    float& reading = record.Readings(i);  // past 360 this is the error, before a value is taken
    reading = fields.NextSingle();
  }
}

void ReadPlotFields(FieldReader& fields, ReadingsRecord& record) {
  record.ReadingsPlotted = fields.NextInteger();
  record.TrimEnd = fields.NextInteger();
  record.Rotate = fields.NextSingle();
  record.PeakLevelDb = fields.NextSingle();
  record.PeakIndex = fields.NextInteger();
  record.TrimFront = fields.NextInteger();
}

void ReadWords(FieldReader& fields, const LoadRules& rules, ReadingsRecord& record) {
  const float scale = fields.NextSingle();
  if (!rules.Overlay) record.ScaleSetting = scale;
  record.WriterVersion = fields.NextText();
  record.CollectedBy = fields.NextText();
  record.CollectedDate = fields.NextText();
  record.Elements = fields.NextText();
  record.PolarizationHorizontal = fields.NextText() == "Horizontal";
  record.Plot180 = fields.NextText() == "180 plot";
}

void WriteText(std::string& out, std::string_view text) { out += '"' + QuotableText(text) + "\"\r\n"; }

void WriteNumber(std::string& out, float value) { out += SingleText(value) + "\r\n"; }

}  // namespace

LoadOutcome ReadPatternText(std::string_view bytes, const LoadRules& rules, ReadingsRecord& record) {
  LoadOutcome outcome;
  record.Description = "no description";
  const std::string text = DecodeText(bytes);
  FieldReader fields(text);
  try {
    ReadReadings(fields, record);
    ReadPlotFields(fields, record);
    record.Description = QuotableText(fields.NextText());
    outcome.DescriptionRead = true;
    const float peak = record.Readings(record.PeakIndex);
    if (peak > rules.PeakInputLevel) outcome.Messages.push_back(PeakWarning(peak, rules.PeakInputLevel));
    ReadWords(fields, rules, record);
    if (record.Plot180) record.Rotate = 0.F;
  } catch (const RunTimeError& error) {
    outcome.Error = error;
  }
  return outcome;
}

LoadOutcome LoadPatternFile(FileAccess& files, const std::string& path, const LoadRules& rules,
                            ReadingsRecord& record) {
  try {
    return ReadPatternText(files.Read(path), rules, record);
  } catch (const RunTimeError& error) {
    record.Description = "no description";
    return {error, {}, false};
  }
}

std::string WritePatternText(const ReadingsRecord& record, std::string_view versionText) {
  std::string out = std::to_string(record.NumReadings) + "\r\n";
  for (int i = 0; i <= record.NumReadings; ++i) WriteNumber(out, record.Readings(i));
  out += std::to_string(record.ReadingsPlotted) + "\r\n" + std::to_string(record.TrimEnd) + "\r\n";
  WriteNumber(out, record.Rotate);
  WriteNumber(out, record.PeakLevelDb);
  out += std::to_string(record.PeakIndex) + "\r\n" + std::to_string(record.TrimFront) + "\r\n";
  WriteText(out, record.Description);
  WriteNumber(out, record.ScaleSetting);
  WriteText(out, versionText);
  WriteText(out, record.CollectedBy);
  WriteText(out, record.CollectedDate);
  WriteText(out, record.Elements);
  WriteText(out, record.PolarizationHorizontal ? "Horizontal" : "Vertical");
  WriteText(out, record.Plot180 ? "180 plot" : "Not 180 plot");
  return EncodeText(out);
}

void CapForFile(ReadingsRecord& record) {
  record.NumReadings = std::min<std::int16_t>(record.NumReadings, kLastWritten);
  record.SavedNumReadings = std::min<std::int16_t>(record.SavedNumReadings, kLastWritten);
}

std::string QuotableText(std::string_view text) {
  std::string result(text);
  std::erase_if(result, [](char c) { return c == '"' || c == '\r' || c == '\n'; });
  return result;
}

}  // namespace lobegraph

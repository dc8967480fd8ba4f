// lobegraph_read_formats FOLDER [MEGABYTES...]: processor time and memory of reading a file of each format,
// as a table. The files are written into the folder, which wants to be one in memory, and taken away again.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "data/base/Numbers.h"
#include "data/formats/PatternFormats.h"

namespace {

using namespace lobegraph;

/// What stands in front of the rows of a format, a row, and what stands behind them.
struct Shape {
  const char* What;
  const char* Id;
  std::function<std::string(std::size_t rows)> Head;
  std::function<std::string(std::size_t row)> Row;
  std::string Tail = "";
};

std::string Number(double value) { return FixedText(value, 2); }
double AngleOf(std::size_t row) { return static_cast<double>(row % 36000) / 100.0; }
std::string Level(std::size_t row) { return Number(-static_cast<double>(row % 37)); }

std::string Azimuths() {
  std::string text;
  for (std::size_t degrees = 0; degrees < 360; ++degrees) text += Level(degrees) + "\n";
  return text;
}

std::vector<Shape> Shapes() {
  const auto pair = [](std::size_t row) { return Number(AngleOf(row)) + " " + Level(row) + "\n"; };
  const auto text = [](const char* head) { return [head](std::size_t) { return std::string(head); }; };
  return {
      {"pattern file", "PatternFile", text("359\n"),
       [](std::size_t row) { return Number(AngleOf(row)) + "\n"; }},
      {"levels, one a line", "LevelList", text(""),
       [](std::size_t row) { return Number(AngleOf(row)) + "\n"; }},
      {"columns", "LevelTable", text("angle,level (dB)\n"),
       [](std::size_t row) { return Number(AngleOf(row)) + "," + Level(row) + "\n"; }},
      {"columns, a heading before each row", "LevelTable", text(""),
       [pair](std::size_t row) { return "angle level\n" + pair(row); }},
      {"Planet", "Planet", text("NAME a\nHORIZONTAL 360\n"), pair},
      {"SPLAT!", "Splat", text("0.0\n"), [](std::size_t row) { return Number(AngleOf(row)) + "\t0.5\n"; }},
      {"Radio Mobile behind remarks", "RadioMobile", text(""),
       [](std::size_t) { return "no level at all\n"; }, Azimuths()},
      {"NSMA", "Nsma", text("PATCUT:,AZ\n"),
       [](std::size_t row) { return Number(AngleOf(row)) + "," + Level(row) + ",\n"; }},
      {"sphere of nec2c", "ModelTable", text("RADIATION PATTERNS\n"),
       [](std::size_t row) {
         return Number(static_cast<double>(row / 360 % 91)) + " " + std::to_string(row % 360) +
                " 1.00 2.00 " + Level(row) + " 0.1 90.0 LINEAR 1.0E+00 0.0 1.0E+00 0.0\n";
       }},
      {"headings of nec2c alone", "ModelTable", text(""),
       [](std::size_t) { return "RADIATION PATTERNS\n1 2 3 4 5\n"; },
       "RADIATION PATTERNS\n90 0 0 0 1\n90 1 0 0 1\n90 2 0 0 1\n90 3 0 0 1\n90 4 0 0 1\n90 5 0 0 1\n90 6 0 0 "
       "1\n90 7 0 0 1\n"},
      {"GRASP, cuts of 361", "GraspCut", text(""),
       [](std::size_t row) {
         return (row % 361 == 0 ? std::string("field\n-180 1 361 0 1 2 2\n") : std::string()) +
                "1.0 0.5 0.1 " + Number(static_cast<double>(row % 9)) + "\n";
       }},
      {"WinProp", "WinProp", [](std::size_t rows) { return std::to_string(rows) + "\n"; }, pair}};
}

/// @return how many rows make up about so many bytes
std::size_t RowsFor(const Shape& shape, std::size_t bytes) {
  std::size_t sample = 0;
  for (std::size_t row = 0; row < 3610; ++row) sample += shape.Row(row).size();
  const std::size_t rows = bytes * 3610 / sample;
  return std::string_view(shape.Id) == "GraspCut" ? rows / 361 * 361 : rows;
}

void Write(const Shape& shape, std::size_t bytes, const std::string& path) {
  const std::size_t rows = RowsFor(shape, bytes);
  std::ofstream file(path, std::ios::binary);
  file << shape.Head(rows);
  for (std::size_t row = 0; row < rows; ++row) file << shape.Row(row);
  file << shape.Tail;
}

const PatternFormat& FormatOf(const Shape& shape) {
  for (const PatternFormat& format : PatternFormats())
    if (format.Id == shape.Id) return format;
  std::abort();
}

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// In a process of its own, so that the memory is that of this file.
std::string Measured(const PatternFormat& format, const std::string& path) {
  const pid_t child = fork();
  if (child == 0) {
    DiskFiles files;
    ReadingsRecord record;
    const LoadRules rules{.PeakInputLevel = 1e9F, .Columns = format.Columns.value_or(false)};
    try {
      _exit(ReadPattern(files, path, rules, record).Error ? 1 : 0);
    } catch (const RunTimeError&) {
      _exit(2);
    }
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const char* const words[] = {"", " (no pattern)", " (refused)"};
  return FixedText(Seconds(usage.ru_utime) + Seconds(usage.ru_stime), 3) + " s, " +
         std::to_string(usage.ru_maxrss / 1024) + " MB" + words[WEXITSTATUS(status) % 3];
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  std::vector<std::size_t> sizes;
  for (int i = 2; i < argc; ++i) sizes.push_back(std::strtoul(argv[i], nullptr, 10));
  if (sizes.empty()) sizes = {1, 10, 100};
  std::string heading = "| Reader |", line = "|---|";
  for (const std::size_t megabytes : sizes) {
    heading += " " + std::to_string(megabytes) + " MB |";
    line += "---|";
  }
  std::printf("%s\n%s\n", heading.c_str(), line.c_str());
  for (const Shape& shape : Shapes()) {
    const PatternFormat& format = FormatOf(shape);
    std::string row = "| " + std::string(shape.What) + " |";
    for (const std::size_t megabytes : sizes) {
      const std::string path =
          folder + "/lobegraph-benchmark" + std::string(format.Endings.substr(0, format.Endings.find(' ')));
      Write(shape, megabytes * 1'000'000, path);
      row += " " + Measured(format, path) + " |";
      std::filesystem::remove(path);
    }
    std::printf("%s\n", row.c_str());
    std::fflush(stdout);
  }
  return 0;
}

#include <chrono>
#include <iostream>
#include <string>
#include <vector>

#include "cli/ColoursFile.h"
#include "cli/OpenPattern.h"
#include "cli/qt/Toolkit.h"
#include "render/qt/picture/QtPictureFiles.h"

namespace {

using namespace lobegraph;

double SecondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The smallest that any report can cost: the bytes in memory.
double ReadAll(const std::vector<std::string>& paths) {
  DiskFiles files;
  std::size_t bytes = 0;
  const auto start = std::chrono::steady_clock::now();
  for (const std::string& path : paths) bytes += files.Read(path).size();
  return bytes > 0 ? SecondsSince(start) : 0.0;
}

/// The smallest that any picture can cost: its finished pixels compressed.
double EncodeAll(const std::vector<std::string>& paths) {
  DiskFiles files;
  Toolkit toolkit;
  QtPictureFiles pictures([&toolkit] { toolkit.Start(); });
  PngEncoder encoder;
  double seconds = 0.0;
  for (const std::string& path : paths) {
    const PatternSession session = OpenPattern(files, path, {}).Session;
    const QImage pixels =
        pictures.Draw({session.Style(), {{session.Plot(), path}}, DefaultColours(), ""}, 0, 0);
    const auto start = std::chrono::steady_clock::now();
    encoder.Encode(QtPictureFiles::ViewOf(pixels));
    seconds += SecondsSince(start);
  }
  return seconds;
}

}  // namespace

/// lobegraph_cli_floor read|encode FILE...: seconds for all of them, on one core.
int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  if (arguments.size() < 2) return 2;
  const std::vector<std::string> paths(arguments.begin() + 1, arguments.end());
  std::cout << (arguments[0] == "read" ? ReadAll(paths) : EncodeAll(paths)) << '\n';
  return 0;
}

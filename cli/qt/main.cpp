#include <unistd.h>

#include <iostream>

#include "cli/ConvertCommand.h"
#include "cli/Options.h"
#include "cli/OutputFiles.h"
#include "cli/PortsCommand.h"
#include "cli/RenderCommand.h"
#include "cli/ReportCommand.h"
#include "cli/qt/Toolkit.h"
#include "data/base/TextEncoding.h"
#include "render/qt/picture/QtPictureFiles.h"
#include "settings/FileSettingsStore.h"

namespace {

using namespace lobegraph;

int Run(int argc, char** argv) {
  const CommandLine commandLine = ParseCommandLine(argc, argv, LOBEGRAPH_VERSION);
  std::cout << commandLine.Output;
  std::cerr << commandLine.Complaint;
  OutputFiles files;
  const CommandParts parts{files, std::cout, std::cerr, isatty(STDERR_FILENO) == 1};
  if (commandLine.Report) return RunReport(*commandLine.Report, parts);
  if (commandLine.Render) {
    Toolkit toolkit;
    QtPictureFiles pictures([&toolkit] { toolkit.Start(); });
    return RunRender(*commandLine.Render, parts, pictures);
  }
  if (commandLine.Convert) return RunConvert(*commandLine.Convert, parts, "V" LOBEGRAPH_VERSION);
  if (commandLine.Ports) {
    FileSettingsStore store;
    ComPorts ports(store);
    return RunPorts(*commandLine.Ports, ports, parts);
  }
  return commandLine.ExitCode;
}

/// What was printed has to arrive: a full disk behind a redirection is no success.
int Finished(int exitCode) {
  std::cout.flush();
  if (std::cout.good()) return exitCode;
  std::cerr << "lobegraph-cli: standard output: cannot be written\n";
  return kSomeFailed;
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  try {
    return Finished(Run(argc, argv));
  } catch (const std::exception& error) {
    std::cerr << PrintableText(std::string("lobegraph-cli: ") + error.what()) << '\n';
  }
  return kSomeFailed;
}

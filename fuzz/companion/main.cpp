// lobegraph_mutator CORPUS [--seconds S] [--from N]: changed files of every format through lobegraph-cli's
// verbs, in this process. Ends with 1 at the first finding, whose number and input it prints.
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "data/formats/PatternFormats.h"
#include "fuzz/Companion.h"

namespace {

using namespace lobegraph;

std::vector<fuzz::Sample> SeedsIn(const std::string& corpus) {
  std::vector<fuzz::Sample> seeds;
  for (const PatternFormat& format : PatternFormats())
    for (const auto& entry : std::filesystem::directory_iterator(corpus + "/" + std::string(format.Id))) {
      std::ostringstream bytes;
      bytes << std::ifstream(entry.path(), std::ios::binary).rdbuf();
      seeds.push_back(
          {"x" + std::string(WordsOf(format.Endings).front()), bytes.str(), format.Columns.value_or(false)});
    }
  return seeds;
}

bool Try(fuzz::Mutator& mutator, std::uint64_t number) {
  const fuzz::Sample sample = mutator.Make(number);
  try {
    fuzz::TryCompanion(sample);
    return true;
  } catch (const std::exception& fault) {
    std::cout << "finding " << number << " in " << sample.Name << ": " << fault.what() << '\n'
              << sample.Text << '\n';
    return false;
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  double seconds = 600;
  std::uint64_t number = 0;
  for (std::size_t i = 1; i + 1 < words.size(); i += 2) {
    if (words[i] == "--seconds") seconds = std::stod(words[i + 1]);
    if (words[i] == "--from") number = std::stoull(words[i + 1]);
  }
  if (words.empty()) return 2;
  fuzz::Mutator mutator(SeedsIn(words[0]));
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  constexpr std::uint64_t kTellEvery = 1000;
  for (; std::chrono::steady_clock::now() < end; ++number) {
    if (number % kTellEvery == 0) std::cerr << '\r' << number << std::flush;  // where a crash is looked for
    if (!Try(mutator, number)) return 1;
  }
  std::cout << "\rno finding up to input " << number << '\n';
  return 0;
}

// Every file of the corpus, and deterministic damage to it, through each target.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "fuzz/Targets.h"

namespace lobegraph::fuzz {

void PrintTo(const Target& target, std::ostream* out) { *out << target.Name; }

namespace {

constexpr int kDamagedInputs = 2000;
constexpr std::size_t kLongestInput = 8192;
constexpr std::string_view kTelling = "0123456789.,;:+-eE\"'#=[] \t\r\n\0NYT\xFF";

std::vector<std::string> Corpus(const std::string& target) {
  std::vector<std::filesystem::path> paths;
  for (const auto& file : std::filesystem::directory_iterator(LOBEGRAPH_CORPUS + ("/" + target)))
    paths.push_back(file.path());
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> inputs;
  for (const auto& path : paths) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    inputs.push_back(bytes.str());
  }
  return inputs;
}

/// The same sequence in every run and on every computer.
class Damage {
 public:
  explicit Damage(const std::vector<std::string>& inputs) : inputs_(inputs) {}

  std::string Next() {
    std::string input = inputs_[Below(inputs_.size())];
    for (std::size_t edits = 1 + Below(6); edits > 0; --edits) Edit(input);
    input.resize(std::min(input.size(), kLongestInput));
    return input;
  }

 private:
  std::size_t Below(std::size_t limit) { return random_() % limit; }
  char Byte() { return Below(2) == 0 ? kTelling[Below(kTelling.size())] : static_cast<char>(Below(256)); }

  void Edit(std::string& input) {
    const std::size_t at = Below(input.size() + 1), length = Below(input.size() - at + 1);
    switch (Below(5)) {
      case 0:
        input.insert(at, 1 + Below(4), Byte());
        break;
      case 1:
        if (at < input.size()) input[at] = Byte();
        break;
      case 2:
        input.erase(at, length);
        break;
      case 3:
        input.insert(at, input.substr(at, length));
        break;
      default:
        input.replace(at, length, inputs_[Below(inputs_.size())]);
    }
  }

  const std::vector<std::string>& inputs_;
  std::minstd_rand random_{20'000};
};

std::string Shown(const std::string& input) {
  std::ostringstream text;
  for (const char byte : input)
    if (byte >= ' ' && byte <= '~')
      text << byte;
    else
      text << "\\" << std::oct << static_cast<unsigned>(static_cast<unsigned char>(byte)) << std::dec;
  return text.str();
}

class Parser : public ::testing::TestWithParam<Target> {
 protected:
  static void Try(const std::string& input) {
    try {
      GetParam().Try(input);
    } catch (const std::exception& fault) {
      FAIL() << fault.what() << ": " << Shown(input);
    }
  }
};

TEST_P(Parser, KeepsItsPromisesForTheCorpus) {
  const std::vector<std::string> inputs = Corpus(GetParam().Name);
  ASSERT_FALSE(inputs.empty());
  for (const std::string& input : inputs) Try(input);
}

TEST_P(Parser, KeepsItsPromisesForDamagedInput) {
  const std::vector<std::string> inputs = Corpus(GetParam().Name);
  ASSERT_FALSE(inputs.empty());
  Damage damage(inputs);
  for (int i = 0; i < kDamagedInputs && !HasFatalFailure(); ++i) Try(damage.Next());
}
INSTANTIATE_TEST_SUITE_P(Targets, Parser, ::testing::ValuesIn(Targets()),
                         [](const auto& target) { return target.param.Name; });

}  // namespace
}  // namespace lobegraph::fuzz

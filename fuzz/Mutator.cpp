#include "fuzz/Mutator.h"

#include <algorithm>
#include <iterator>

namespace lobegraph::fuzz {
namespace {

constexpr std::size_t kMostLines = 4000;

constexpr const char* kNumbers[] = {"0",      "-0",      "1",      "-1",         "359",  "360",   "361",
                                    "32767",  "32768",   "-32768", "2147483648", "1e30", "-1e30", "1e308",
                                    "1e309",  "1e-40",   "1e-320", "nan",        "inf",  ".5",    "0,5",
                                    "1E5",    "-999.99", "-100",   "-100.01",    "180",  "90.5",  "0.00001",
                                    "999999", "1000",    "+7",     "--7",        "1.2.3"};
constexpr const char* kTexts[] = {"\"",
                                  "\"\"",
                                  ",",
                                  ";",
                                  "\t",
                                  "!",
                                  "\xEF\xBB\xBF",
                                  "\xEF\xBF\xBF",
                                  "\xE4",
                                  "\x1B[2J",
                                  "\x7F",
                                  "\xC2\x85",
                                  "\v",
                                  "\f",
                                  "EOF",
                                  "\xE2\x80\xA8",
                                  "<&>",
                                  "{}",
                                  "HORIZONTAL 360",
                                  "RADIATION PATTERNS",
                                  "Tot dB",
                                  "PATCUT:,AZ",
                                  "angle,level (dB)",
                                  "CM",
                                  "180 plot",
                                  "# 3"};

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  if (lines.empty()) lines.emplace_back();
  return lines;
}

}  // namespace

Sample Mutator::Make(std::uint64_t number) {
  random_.seed(static_cast<std::uint32_t>(number * 2654435761U + 1U));
  random_.discard(3);
  Sample sample = seeds_[Below(seeds_.size())];
  auto lines = LinesOf(sample.Text);
  for (std::size_t changes = Below(5); changes > 0; --changes) ChangeLines(lines);
  lines.resize(std::min(lines.size(), kMostLines));
  constexpr const char* kEnds[] = {"\n", "\n", "\n", "\r\n", "\r"};
  const std::string end = kEnds[Below(std::size(kEnds))];
  sample.Text.clear();
  for (const std::string& line : lines) sample.Text += line + end;
  if (Below(20) == 0) sample.Text.resize(Below(sample.Text.size() + 1));
  return sample;
}

void Mutator::ChangeLines(std::vector<std::string>& lines) {
  const std::size_t at = Below(lines.size());
  const std::size_t count = 1 + Below(std::min<std::size_t>(lines.size() - at, 40));
  const auto place = lines.begin() + static_cast<std::ptrdiff_t>(at);
  switch (Below(8)) {
    case 0:
      if (count < lines.size()) lines.erase(place, place + static_cast<std::ptrdiff_t>(count));
      break;
    case 1: {
      const std::vector<std::string> copied(place, place + static_cast<std::ptrdiff_t>(count));
      const auto to = lines.begin() + static_cast<std::ptrdiff_t>(Below(lines.size() + 1));
      lines.insert(to, copied.begin(), copied.end());
      break;
    }
    case 2:
      std::swap(lines[at], lines[Below(lines.size())]);
      break;
    case 3:
      lines.insert(place, HostileText());
      break;
    case 4: {  // a line of another format
      const auto foreign = LinesOf(seeds_[Below(seeds_.size())].Text);
      lines.insert(place, foreign[Below(foreign.size())]);
      break;
    }
    default:
      for (std::size_t i = at; i < at + (Below(4) == 0 ? count : 1); ++i) ChangeField(lines[i]);
  }
}

/// One field becomes another number or text.
void Mutator::ChangeField(std::string& line) {
  constexpr const char* kSeparators = " \t,;:";
  const std::size_t somewhere = Below(line.size() + 1);
  std::size_t begin = line.find_last_of(kSeparators, somewhere);
  begin = begin == std::string::npos ? 0 : begin + 1;
  const std::size_t end = std::min(line.find_first_of(kSeparators, begin), line.size());
  const bool number = Below(3) != 0;
  line.replace(begin, end - begin, number ? kNumbers[Below(std::size(kNumbers))] : HostileText());
}

std::string Mutator::HostileText() {
  std::string text;
  for (std::size_t parts = 1 + Below(3); parts > 0; --parts) text += kTexts[Below(std::size(kTexts))];
  return Below(50) == 0 ? text + std::string(70'000, 'x') : text;
}

}  // namespace lobegraph::fuzz

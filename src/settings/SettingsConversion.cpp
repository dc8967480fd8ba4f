#include "settings/SettingsConversion.h"

#include <algorithm>

#include "data/base/Numbers.h"
#include "data/base/Rounding.h"

namespace lobegraph {
namespace {

bool SameWord(std::string_view text, std::string_view lowerWord) {
  return std::equal(text.begin(), text.end(), lowerWord.begin(), lowerWord.end(), [](char a, char lower) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == lower;
  });
}

void Parse(std::string_view text, std::string& value) { value = text; }
void Parse(std::string_view text, std::int16_t& value) { value = ToInt16(LeadingNumber(text)); }
void Parse(std::string_view text, std::int32_t& value) { value = ToInt32(LeadingNumber(text)); }
void Parse(std::string_view text, float& value) { value = ToSingle(LeadingNumber(text)); }
void Parse(std::string_view text, Currency& value) { value = Currency::FromText(text); }
void Parse(std::string_view text, bool& value) {
  const bool isWord = SameWord(text, "true") || SameWord(text, "false");
  value = isWord ? SameWord(text, "true") : WholeNumberText(text) != 0.0;
}

std::string TextOf(const std::string& value) { return value; }
std::string TextOf(std::int32_t value) { return std::to_string(value); }
std::string TextOf(float value) { return StoreText(value); }
std::string TextOf(Currency value) { return value.ToText(); }
std::string TextOf(bool value) { return value ? "True" : "False"; }

/// The values, or the part of them that the member belongs to.
template <typename Values, typename Type>
auto& Owner(Values& values, Type SettingsValues::* /*member*/) {
  return values;
}
template <typename Values, typename Type>
auto& Owner(Values& values, Type InputChoice::* /*member*/) {
  return values.Input;
}

}  // namespace

std::string SettingText(const SettingRow& row, const SettingsValues& values) {
  return std::visit([&](auto member) { return TextOf(Owner(values, member).*member); }, row.Member);
}

void AssignSetting(const SettingRow& row, std::string_view text, SettingsValues& values) {
  std::visit([&](auto member) { Parse(text, Owner(values, member).*member); }, row.Member);
}

}  // namespace lobegraph

#pragma once

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/parts/ErrorEdge.h"
#include "app/parts/SystemText.h"
#include "app/parts/UserDialogs.h"
#include "data/base/FileAccess.h"
#include "data/base/Numbers.h"
#include "support/AppControlView.h"
#include "support/RecordingStore.h"
#include "support/RecordingSurface.h"

namespace lobegraph {

/// Boxes that a test answers beforehand. An unanswered box is cancelled.
class FakeDialogs final : public UserDialogs {
 public:
  explicit FakeDialogs(AppLog& log) : log_(log) {}

  std::vector<UserMessage> Messages;
  std::vector<std::string> Questions;
  std::vector<std::pair<std::string, std::string>> Prompts;  ///< prompt and title of each input box
  std::vector<std::string> Ticks;                            ///< captions of boxes to tick
  std::vector<std::string> Folders;                          ///< where each file dialog started
  bool Yes = true;
  std::optional<std::string> Answer;
  bool Tick = false;
  std::optional<std::string> FileToOpen;
  std::optional<std::string> FileToSave;
  std::function<void()> WhileOpen;  ///< runs while a message box is open

  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const UserMessage& message : Messages) texts.push_back(message.Text);
    return texts;
  }

  void Show(const UserMessage& message) override {
    Messages.push_back(message);
    log_.push_back("message " + message.Text);
    if (WhileOpen) WhileOpen();
  }
  bool AskYesNo(const std::string& text) override {
    Questions.push_back(text);
    log_.push_back("question " + text);
    return Yes;
  }
  std::optional<std::string> InputBox(const std::string& prompt, const std::string& title) override {
    Prompts.emplace_back(prompt, title);
    log_.push_back("input box " + prompt);
    return Answer;
  }
  std::optional<TickedAnswer> InputBoxWithTick(const std::string& prompt, const std::string& title,
                                               const std::string& tick) override {
    Ticks.push_back(tick);
    if (const auto answer = InputBox(prompt, title)) return TickedAnswer{*answer, Tick};
    return std::nullopt;
  }
  std::optional<std::string> OpenFile(const std::string& folder) override {
    Folders.push_back(folder);
    log_.emplace_back("open dialog");
    return FileToOpen;
  }
  std::optional<std::string> SaveFile(const std::string& folder) override {
    Folders.push_back(folder);
    log_.emplace_back("save dialog");
    return FileToSave;
  }

 private:
  AppLog& log_;
};

class FakeSystemText final : public SystemText {
 public:
  std::string Now = "10:22 21/11/2026";

  std::string OneDecimal(float value) const override { return "<" + FixedText(value, 1) + ">"; }
  std::string TimeAndDate() const override { return Now; }
  std::string UpperCase(const std::string& text) const override {
    std::string upper = text;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
  }
};

/// Files in memory that fail where a test says.
class FakeFiles final : public FileAccess {
 public:
  explicit FakeFiles(AppLog& log) : log_(log) {}

  std::map<std::string, std::string> Held;
  int ReadFault = 0;
  int ReplaceFault = 0;

  std::string Read(const std::string& path) override {
    log_.push_back("read " + path);
    if (ReadFault != 0) throw RunTimeError(ReadFault, path);
    const auto found = Held.find(path);
    if (found == Held.end()) throw RunTimeError(fault::kFileNotFound, path);
    return found->second;
  }
  bool Exists(const std::string& path) override { return Held.contains(path); }
  void Replace(const std::string& path, std::string_view bytes) override {
    log_.push_back("write " + path);
    if (ReplaceFault != 0) throw RunTimeError(ReplaceFault, path);
    Held[path] = bytes;
  }
  void Remove(const std::string& path) override {
    log_.push_back("remove " + path);
    Held.erase(path);
  }

 private:
  AppLog& log_;
};

/// Ends nothing: what the program does after it has asked is seen as well.
class FakeProgramEnd final : public ProgramEnd {
 public:
  explicit FakeProgramEnd(AppLog& log) : log_(log) {}
  int AtOnce = 0;
  int InGoodOrder = 0;
  void EndAtOnce() override { ++AtOnce, log_.emplace_back("EndAtOnce"); }
  void EndProgram() override { ++InGoodOrder, log_.emplace_back("EndProgram"); }

 private:
  AppLog& log_;
};

/// A surface whose clearing stands in the common log, and which can fail.
class AppSurface final : public RecordingSurface {
 public:
  explicit AppSurface(AppLog& log) : log_(log) {}
  bool Fails = false;  ///< clearing raises a device error

  void Clear() override {
    if (Fails) throw RunTimeError(fault::kDeviceIo);
    log_.emplace_back("clear");
    RecordingSurface::Clear();
  }

  /// How many operations of that kind ("line", "dot") were drawn in a colour ("#800000").
  long Count(const std::string& kind, const std::string& colour) const {
    return std::count_if(Operations.begin(), Operations.end(), [&](const std::string& operation) {
      return operation.starts_with(kind + " ") && operation.ends_with(colour);
    });
  }
  /// Place of the first operation in a colour; -1 for none.
  long FirstIn(const std::string& colour) const {
    const auto found = std::find_if(Operations.begin(), Operations.end(), [&](const std::string& operation) {
      return operation.ends_with(colour);
    });
    return found == Operations.end() ? -1 : found - Operations.begin();
  }

 private:
  AppLog& log_;
};

/// A store whose calls stand in the common log as well.
class AppStore final : public RecordingStore {
 public:
  explicit AppStore(AppLog& log) : log_(log) {}
  std::string Get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override {
    std::string value = RecordingStore::Get(application, section, key, fallback);
    log_.push_back(Log.back());
    return value;
  }
  bool SaveAll(std::string_view application, std::string_view section, std::span<const SettingToSave> values,
               Keeping keeping) override {
    const bool saved = RecordingStore::SaveAll(application, section, values, keeping);
    log_.insert(log_.end(), Log.end() - static_cast<std::ptrdiff_t>(values.size()), Log.end());
    return saved;
  }

 private:
  AppLog& log_;
};

}  // namespace lobegraph

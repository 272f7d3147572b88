// A message port that follows a script.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/Messages.h"

namespace korva {

// Answers the expected messages in their order. A message that is not the next expected one, and one that was
// expected and never came, fail the test.
class ScriptedMessages final : public MessagePort {
 public:
  ScriptedMessages() = default;
  ScriptedMessages(const ScriptedMessages&) = delete;
  ScriptedMessages& operator=(const ScriptedMessages&) = delete;

  ~ScriptedMessages() override {
    for (const Step& step : script_) {
      ADD_FAILURE() << "a message never came: " << step.text;
    }
  }

  // The next message begins with `text`, shows `buttons`, and is answered with `answer`.
  ScriptedMessages& Expect(std::string text, MessageButtons buttons = MessageButtons::kOk,
                           MessageAnswer answer = MessageAnswer::kOk) {
    script_.push_back({std::move(text), buttons, answer});
    return *this;
  }

  MessageAnswer Show(const Message& message) override {
    Shown.push_back(message);
    if (script_.empty()) {
      ADD_FAILURE() << "nobody expected a message: " << message.text;
      return MessageAnswer::kCancel;
    }
    const Step step = std::move(script_.front());
    script_.pop_front();
    EXPECT_TRUE(message.text.starts_with(step.text)) << message.text << "\ninstead of: " << step.text;
    EXPECT_EQ(message.buttons, step.buttons) << message.text;
    if (WhileShown) {
      WhileShown();
    }
    return step.answer;
  }

  std::vector<Message> Shown;
  std::function<void()> WhileShown;  // what happens while an expected message is open

 private:
  struct Step {
    std::string text;
    MessageButtons buttons;
    MessageAnswer answer;
  };
  std::deque<Step> script_;
};

}  // namespace korva

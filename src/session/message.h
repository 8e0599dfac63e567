// A message the engine hands to its caller; the window layer shows it in a box.
#pragma once

#include <string>
#include <vector>

namespace peq {

enum class MsgIcon { None, Stop, Warning, Information, Question };

struct Message {
  std::string title;
  std::string text;
  MsgIcon icon = MsgIcon::None;
  bool operator==(const Message&) const = default;
};

// Collected messages of one call, in the order they arose.
using MsgSink = std::vector<Message>;

inline void Post(MsgSink* sink, std::string title, std::string text, MsgIcon icon) {
  if (sink) sink->push_back(Message{std::move(title), std::move(text), icon});
}

// The line break of message texts.
inline constexpr const char* kNL = "\n";

}  // namespace peq

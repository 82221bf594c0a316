// Counting and naming moments.
#include "journal/moments.h"

#include <algorithm>
#include <charconv>

#include "text/text.h"

namespace brindlemoor {

namespace {

/// Takes a number from 0 off the front of a text.
bool TakeNumber(std::string_view& text, int& number) {
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || number < 0) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return true;
}

}  // namespace

std::string Moment::Text() const {
  if (Event < 0) return "-";
  return Joined(Event, ".", Call, Behind ? "+" : "");
}

std::optional<Moment> Moment::Read(std::string_view text) {
  Moment moment;
  if (text == "-") return moment;
  if (!TakeNumber(text, moment.Event) || !text.starts_with('.')) return std::nullopt;
  text.remove_prefix(1);
  if (!TakeNumber(text, moment.Call)) return std::nullopt;
  moment.Behind = text == "+";
  if (!moment.Behind && !text.empty()) return std::nullopt;
  return moment;
}

Moment MomentCounter::InnermostEvent() const {
  const auto event = std::find_if(progress_.rbegin(), progress_.rend(),
                                  [](const Moment& moment) { return moment.Behind; });
  return event == progress_.rend() ? Moment{} : *event;
}

void MomentCounter::BeginCall() {
  const auto event = std::find_if(progress_.rbegin(), progress_.rend(),
                                  [](const Moment& moment) { return moment.Behind; });
  Moment call;
  if (event != progress_.rend()) call = {event->Event, ++event->Call, false};
  progress_.push_back(call);
}

}  // namespace brindlemoor

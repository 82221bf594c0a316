// What belongs to one firing of an action: the roll of ONECHANCE, whether ECHOONCE has spoken, and
// what reactions have answered.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/state.h"

namespace brindlemoor {

/// True for an action that answers the trigger: not free, and no menu action that waits.
inline bool Answers(const CardEffect& effect, std::string_view trigger) {
  return effect.Trigger == trigger && effect.MenuState != kMenuAction && !effect.Script.empty();
}

// Marks of the triggers of a card's actions (SharedArray::Marks): a mark that is not there says
// that none of them has such a trigger.

/// The mark of a trigger, to the letter.
constexpr std::uint64_t TriggerMark(std::string_view trigger) {
  constexpr std::size_t kMarks = 40;
  if (trigger.empty()) return 0;
  const std::size_t first = static_cast<unsigned char>(trigger.front());
  const std::size_t last = static_cast<unsigned char>(trigger.back());
  return std::uint64_t{1} << ((trigger.size() * 31 + first * 7 + last) % kMarks);
}
/// The mark of "BEFORETRAITCHANGE:" with a trait, in any case.
constexpr std::uint64_t BeforeChangeMark(std::uint32_t traitKey) {
  constexpr std::uint32_t kMarks = 20;
  return std::uint64_t{1} << (40 + SpreadOfKey(traitKey, kMarks));
}
/// The mark of "TRAITCHANGE" with any trait.
inline constexpr std::uint64_t kTraitChangeMark = std::uint64_t{1} << 60;
/// The marks of all actions together.
std::uint64_t MarksOfActions(const SharedArray<CardEffect>& effects);
/// The marks of a card's actions.
inline std::uint64_t TriggerMarks(const Card& card) { return card.Effects.Marks(MarksOfActions); }

/// A new firing has no roll and has said nothing. Those of TRAITCHANGE share what was there when
/// the walk over the changed traits began.
inline void BeginFiring() {
  Session& session = State();
  if (session.TraitChangeBusy == 1) return;
  session.SharedChanceRoll = 0;
  session.EchoedOnce = 0;
}

/// A firing within another one (a death, an entry, a trait change, a reaction): when it ends, the
/// outer one has its roll and its mark back, and is neither cancelled nor turned to another card by
/// what happened in it.
class OwnFiring {
 public:
  OwnFiring() = default;
  OwnFiring(const OwnFiring&) = delete;
  OwnFiring& operator=(const OwnFiring&) = delete;
  ~OwnFiring() {
    Session& session = State();
    session.SharedChanceRoll = roll_;
    session.EchoedOnce = echoed_;
    session.CancelState = cancel_;
    session.RedirectTarget = redirect_;
    session.RedirectScript = script_;
  }

 private:
  int roll_ = State().SharedChanceRoll;
  std::uint8_t echoed_ = State().EchoedOnce;
  std::uint8_t cancel_ = State().CancelState;
  std::int32_t redirect_ = State().RedirectTarget;
  Text script_ = State().RedirectScript;
};

}  // namespace brindlemoor

// Putting the session back.
#include "game/looking.h"

#include "data/card_reader.h"
#include "game/card_play.h"
#include "game/windows.h"
#include "script/run_services.h"

namespace brindlemoor {

namespace {

constexpr RunServices kServices = {TakeCardsOut, PayCost, [] {}};

}  // namespace

Looking::Looking() {
  State().Services = &kServices;
  State().Windows = &kNoWindows;
  State().Trace = nullptr;
  State().Log = nullptr;
}

}  // namespace brindlemoor

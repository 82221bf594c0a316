// ReadMark: what the read of a file may change beside the side that it reads for, and taking it
// back.
#pragma once

#include <tuple>

#include "core/state.h"

namespace brindlemoor {

/// The tables that directives of card files write to: the one description of them.
inline auto TablesOfReads(Session& session) {
  return std::tie(session.CardTable, session.TraitActions, session.Sideboard, session.Collection,
                  session.Decks, session.Templates, session.RulesCard, session.CostCard,
                  session.TraitGraphics, session.CustomStrings, session.StringsCanVanish,
                  session.DeckRules, session.GameFileName, session.StarterDeckFlag);
}

/// The tables as they are when the mark is made. Whoever wants only cards out of a file puts all of
/// them back behind the read.
class ReadMark {
 public:
  ReadMark() : kept_(CopyOf(TablesOfReads(State()))) {}

  /// How many records a mark keeps.
  static int Records() {
    const Session& session = State();
    int records = session.CardTable.UpperBound() + session.TraitActions.UpperBound() +
                  session.Sideboard.UpperBound() + session.Collection.UpperBound() +
                  session.Templates.UpperBound() + session.CustomStrings.UpperBound();
    for (const DeckRec& deck : session.Decks) records += deck.Cards.UpperBound();
    return records;
  }

  /// Takes back what files have changed since. Records keep their addresses, as Table does.
  void PutBack() const { TablesOfReads(State()) = kept_; }

 private:
  template <class... Tables>
  static std::tuple<Tables...> CopyOf(const std::tuple<Tables&...>& tables) {
    return tables;
  }

  decltype(CopyOf(TablesOfReads(State()))) kept_;
};

}  // namespace brindlemoor

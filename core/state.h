// The session: every table and variable of the program, in one object.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/folder_lists.h"
#include "core/limits.h"
#include "core/match_record.h"
#include "core/random.h"
#include "core/records.h"
#include "core/shown_links.h"
#include "core/turn_plan.h"
#include "core/turn_record.h"
#include "core/work_budget.h"

namespace brindlemoor {

class ActionTrace;
class TableJournal;
class Platform;
class cGdiPlus;
struct EditorForms;
struct Forms;
struct EditorDoor;
struct TrialMatches;
struct GameWindows;
struct MatchLog;
struct RunServices;
struct SuspendedGame;

/// Slot and action of one HitTable entry; slot 0 is free.
struct Hit {
  int Slot = 0;
  int Effect = 0;
};

inline constexpr int kHitLists = 21;  ///< one for each trigger code, 0 to 20

/// Something that was wrong in a file; reading went on.
struct Problem {
  std::string File;
  int Line = 0;  ///< 1-based, 0 when the problem belongs to no line
  std::string Message;
};

/// Places of a table by a text key.
struct KeyHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>()(key); }
};
using KeyPlaces = std::unordered_map<std::string, int, KeyHash, std::equal_to<>>;

/// Every table of the program. A fresh session is one assignment; nothing else in the engine is
/// global and mutable.
struct Session {
  // The cards of the game in progress and the two sides.
  Pile CardTable;                      ///< index = Slot
  FixedTable<PlayerState, 3> Players;  ///< 1 human, 2 computer, 3 neutral
  PlayerState GameDeck;                ///< the cards of the rules file (number 4)
  Card RulesCard;
  Card CostCard;
  Pile Sideboard;
  Pile TraitActions;  ///< cards of #TRAITACTION blocks
  /// Keys of their names with their places, in order, while a turn runs; none while not known.
  std::vector<std::pair<std::uint32_t, int>> GiverPlaces;
  Table<TraitGraphic> TraitGraphics;
  SharedArray<TraitBitName> TraitBitNames;
  /// Where a name with such a key was found last; 0 nowhere, and a name that it isn't is sought.
  std::array<std::uint8_t, 64> TraitBitPlaces{};
  /// Bits that do not tell what a card has; the mask filter skips them.
  TraitWords UnsureTraitBits;
  bool HasUnsureTraitBits = false;
  std::array<std::vector<Hit>, kHitLists> HitTable;  ///< by trigger code
  std::uint32_t ActionsAdded = 0;                    ///< counts AddEffect
  std::array<std::uint64_t, 65> BitValues{};         ///< [i] = 2 to the power i-1, for i from 1
  Table<CustomStringRec> CustomStrings;
  bool StringsCanVanish = false;  ///< one of their values can come to nothing
  Text DeckRules;
  Pile PendingCards;  ///< waiting for the next FlushPending
  std::int16_t PendingCount = 0;
  Table<std::int16_t> WaitingSlots;  ///< table cards waiting for ActivateOn; 0 free
  std::int32_t LastEntered = 0;      ///< slot given by the latest AddToTable

  // What the player owns.
  Pile Collection;
  FixedTable<DeckRec, kDecks> Decks;
  std::uint8_t CurrentDeck = 1;
  Table<ProfileRec> Profiles;
  ProfileRec Profile;  ///< PlayerName, PlayerFile, RulesFile in use
  PlayerFileRec StoredPlayer;

  // Games and files.
  Table<GameRec> Games;
  std::int16_t CurrentGame = 0;
  Text GameFileName;                 ///< value of #GAMEFILE
  std::uint8_t StarterDeckFlag = 0;  ///< 1 after a file with #STARTERDECK
  Pile MasterCards;                  ///< master definitions, in the order in which they were read
  KeyPlaces MasterPlaces;            ///< of unique IDs in MasterCards
  Table<ReferenceFile> RefCache;     ///< files read for #REF... directives
  Table<Template> Templates;
  CropCoordinates Crop;                ///< of the image that the editor composes
  FolderFiles RandomPictures;          ///< those that PickRandomFile drew from last
  Text CardFile;                       ///< file in the editor
  Card EditCard;                       ///< card in the editor
  FixedTable<Text, 100> CommonTraits;  ///< trait names that the editor offers; the first "" is free
  std::uint8_t SingleCardEdit = 0;     ///< 1 the editor changes the picture of one owned card
  std::string ProgramFolder;           ///< absolute, without a closing separator
  std::string CurrentFolder;           ///< where plain file names are opened
  int ReadDepth = 0;                   ///< ReadCards calls in progress
  /// Names of the reads in progress, from 1.
  std::array<Text, limits::kNestedReads + 1> FileList;
  /// Parallel to FileList: the files as opened.
  std::array<Text, limits::kNestedReads + 1> OpenPaths;
  int FilesRead = 0;              ///< files of the outermost read in progress
  std::vector<Problem> Problems;  ///< what readers found wrong
  int TwinsTaken = 0;             ///< see TakeReferencedFile

  // Planning and clicks.
  /// Hand positions in play order; 0 free.
  FixedTable<std::uint8_t, kHandPositions> PlayQueue;
  /// Slot per queue entry; 0 none, -1 discard.
  FixedTable<std::int16_t, kHandPositions> PlayTarget;
  std::uint8_t AwaitingPlayTarget = 0;  ///< queue position waiting for a target; 0 none
  std::int16_t SelectedSlot = 0;        ///< slot of the card last clicked
  std::uint8_t AwaitingMenuTarget = 0;  ///< 1 after a menu action that needs a target click
  std::uint8_t MenuEffect = 0;          ///< index of that action

  // Pages and modes.
  std::string PageText;                               ///< the HTML being composed
  std::string PhaseBanner;                            ///< what scripts have said this turn
  std::set<std::string, std::less<>> LimitsReported;  ///< bounds already named this turn
  ShownLinks Links;                                   ///< what a click in a view may ask for
  std::set<std::string, std::less<>> PagesWritten;    ///< names of pages, see PagePath
  int CopyOfProgram = 1;           ///< of the programs that run on this folder at the same time
  std::uint8_t TurnRunning = 0;    ///< 1 while a turn or the start of a match runs
  std::uint8_t OwnNavigation = 0;  ///< 1 while the program navigates a view
  std::uint8_t DebugMode = 0;
  bool Quiet = false;  ///< nobody reads: texts that do nothing but say something are left out
  std::uint8_t FullSizeImages = 0;
  std::uint8_t GameOver = 0;
  std::uint8_t TestFromEditor = 0;
  std::uint8_t DeckManagerMode = 0;
  std::uint8_t DeckManagerInGame = 0;
  std::uint8_t PickingCard = 0;
  std::int32_t PickedCard = 0;
  std::uint8_t PickedPile = 0;
  std::uint8_t SaleMode = 0;

  // State that script runs share.
  int RunDepth = 0;                 ///< RunAction frames in progress
  double LastValue = 0;             ///< behind LASTVAL, $AMT and the like
  std::uint8_t CancelState = 0;     ///< 0 none, 1 cancelled, 2 CANCEL executed in this run
  std::int32_t RedirectTarget = 0;  ///< slot chosen by a redirect, 0 none
  Text RedirectScript;
  int RedirectDepth = 0;      ///< runs in progress of redirected actions
  Text RedirectTraitName;     ///< trait that takes a negative change instead
  std::string FailReason;     ///< why the last requirement failed
  std::uint8_t HpReport = 0;  ///< 1 a sentence about the target's HP is due, 2 the source's
  std::uint8_t DeleteRunningEffect = 0;
  std::uint8_t TraitChangeBusy = 0;     ///< 1 while TRAITCHANGE triggers fire
  std::uint8_t TraitActionsPaused = 0;  ///< 1 while a stored card is changed
  int SharedChanceRoll = 0;             ///< roll of ONECHANCE, 0 none
  std::uint8_t EchoedOnce = 0;
  Text PendingEffectText;              ///< what an ADDEFFECT leaves for FlushPendingEffect
  std::int32_t PendingEffectCard = 0;  ///< GlobalID of its card
  int TraitRedirectDepth = 0;          ///< ModTrait calls in progress that a redirect made
  int BonusDepth = 0;                  ///< bonus expressions in progress
  int BonusCount = 0;                  ///< evaluated since the outermost one began
  int DiceRolled = 0;                  ///< dice of rolls with several, this turn
  double StatMasked = 0;
  double StatNotMasked = 0;
  double StatCancelled = 0;

  WorkBudget Work;    ///< what was done of what may be done
  FolderLists Lists;  ///< see Folders()

  RandomSource Random;
  MatchRecord Match;                ///< the match of the main window
  TurnRecord LastTurn;              ///< what somebody who looks is told of it
  std::shared_ptr<MatchLog> Log;    ///< of the match, where somebody counts; mostly empty
  ActionTrace* Trace = nullptr;     ///< who listens why actions do not act; mostly nobody
  TableJournal* Journal = nullptr;  ///< keeps what a price test changes; mostly nobody
  std::unordered_map<std::string_view, Text>
      InternedTexts;  ///< see InternText; keys are views of the texts

  std::shared_ptr<SuspendedGame> Suspended;  ///< the game behind the card editor while it is open

  // What floors of the engine ask of those above them.
  const RunServices* Services = nullptr;  ///< script asks game
  const GameWindows* Windows = nullptr;   ///< game asks ui
  const EditorDoor* Editor = nullptr;     ///< ui asks editor
  /// How hard each side thinks (core/mind_levels.h).
  FixedTable<std::uint8_t, 2> Minds;
  /// Game asks mind for the plan of a side that thinks; nothing for one that judges card by card.
  std::optional<TurnPlan> (*ThinkOfTurn)(int side) = nullptr;
  /// What side 2 does this turn in place of judging its hand.
  std::optional<TurnPlan> EnemyPlan;
  /// Ui asks simulation how matches against an opponent go; nullptr where nobody can tell.
  TrialMatches (*TryOpponent)(int gameIndex, int opponentIndex) = nullptr;

  // What the engine reaches of the desktop.
  std::shared_ptr<Platform> Desktop;             ///< never empty while the program runs
  std::shared_ptr<Forms> OpenForms;              ///< the windows
  std::shared_ptr<EditorForms> OpenEditorForms;  ///< the editor's windows
  std::shared_ptr<cGdiPlus> ImageBridge;         ///< the one image object
};

namespace internal {
extern Session TheSession;
}

/// The session of this program.
inline Session& State() noexcept { return internal::TheSession; }

/// Counts work on the present account.
inline void SpendWork(std::int64_t steps) noexcept { State().Work.Spend(steps); }
/// The same for work on a text of so many bytes.
inline void SpendWorkOnText(std::size_t bytes) noexcept { State().Work.SpendOnText(bytes); }
/// The same for a look through so many items of a list.
inline void SpendWorkOnSearch(std::size_t items) noexcept { State().Work.SpendOnSearch(items); }
/// The same for one look at whether a folder holds a file.
inline void SpendWorkOnLook() noexcept { State().Work.SpendOnLook(); }

/// True when nothing is left of the present account: scripts end where they stand, and loops that
/// would start more of them end too. Without an account there is no end.
inline bool WorkIsSpent() noexcept { return State().Work.IsSpent(); }

/// The same for a script of a card that would go on or begin.
inline bool StopsForWork(const Card& acting) { return State().Work.Stops(acting.Name); }

/// A Text that shares its storage with every equal text interned before, so that what is worked out
/// of a script once serves all cards that carry it. The table is bounded.
Text InternText(std::string_view text);

/// Keeps a reader's problem with file and line (bounded, see limits.h).
void AddProblem(std::string_view file, int line, std::string_view message);

}  // namespace brindlemoor

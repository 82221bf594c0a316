// MatchFields: what a saved match holds of each record, as tables.
#pragma once

#include "core/limits.h"
#include "core/match_log.h"
#include "core/mind_levels.h"
#include "core/state.h"
#include "saving/record_fields.h"

namespace brindlemoor {

inline constexpr std::int64_t kLargestCount = std::numeric_limits<int>::max();

template <>
inline constexpr auto kFieldsOf<CardEffect> = std::tuple{
    Field{&CardEffect::Trigger},
    Field{&CardEffect::TargetType},
    Field{&CardEffect::TargetText},
    Field{&CardEffect::Script},
    Field{&CardEffect::MenuState, kOrdinaryAction, kArmedMenuAction},
    Field{&CardEffect::MenuCaption},
    Field{&CardEffect::ChosenTarget},
    Field{&CardEffect::NeedTargetBits},
    Field{&CardEffect::NeedMyBits},
    Field{&CardEffect::ForbidTargetBits},
    Field{&CardEffect::ForbidMyBits},
    Field{&CardEffect::OwnerMask},
    Field{&CardEffect::PickedPile},
    Field{&CardEffect::AddedAt},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<CardEffect>)> == kMembersOf<CardEffect>);

template <>
inline constexpr auto kFieldsOf<Card> = std::tuple{
    Field{&Card::Name},
    Field{&Card::Picture},
    Field{&Card::Thumb},
    Field{&Card::AuxText},
    Field{&Card::Traits},
    Field{&Card::TraitCaptions},
    Field{&Card::Effects},
    Field{&Card::Description},
    Field{&Card::NameColor},
    Field{&Card::InPlay, 0, 1},
    Field{&Card::TargetSlot},
    Field{&Card::StoredTarget},
    Field{&Card::Owner},
    Field{&Card::GlobalID},
    Field{&Card::Initialised, 0, 1},
    Field{&Card::TraitActionsApplied, 0, 1},
    Field{&Card::ChangedTraits},
    Field{&Card::Rarity},
    Field{&Card::SourceFile},
    Field{&Card::UniqueID},
    Field{&Card::TraitBits},
    Field{&Card::OwnerBit},
    Field{&Card::Slot, 0, limits::kTableCards},
    Field{&Card::ActivateOn},
    Field{&Card::EntryScripts},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<Card>)> == kMembersOf<Card>);

template <>
inline constexpr auto kFieldsOf<DeckRec> = std::tuple{
    Field{&DeckRec::DeckName},
    Field{&DeckRec::Cards},
    Field{&DeckRec::Header},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<DeckRec>)> == kMembersOf<DeckRec>);

template <>
inline constexpr auto kFieldsOf<PlayerState> = std::tuple{
    Field{&PlayerState::FileName}, Field{&PlayerState::PlayerCard, 0, limits::kTableCards},
    Field{&PlayerState::Deck},     Field{&PlayerState::StartDeck},
    Field{&PlayerState::Hand},     Field{&PlayerState::SparePile},
    Field{&PlayerState::PlayerNo}, Field{&PlayerState::Color},
    Field{&PlayerState::Tokens},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<PlayerState>)> == kMembersOf<PlayerState>);

template <>
inline constexpr auto kFieldsOf<ReferenceFile> =
    std::tuple_cat(kFieldsOf<PlayerState>, std::tuple{
                                               Field{&ReferenceFile::GameFolder},
                                               Field{&ReferenceFile::TookTwins},
                                           });
static_assert(std::tuple_size_v<decltype(kFieldsOf<ReferenceFile>)> ==
              kMembersOf<PlayerState> + kMembersOf<ReferenceFile> - 1);

template <>
inline constexpr auto kFieldsOf<TraitGraphic> = std::tuple{
    Field{&TraitGraphic::TraitName}, Field{&TraitGraphic::Picture},
    Field{&TraitGraphic::FontColor}, Field{&TraitGraphic::Label},
    Field{&TraitGraphic::ShowSmall}, Field{&TraitGraphic::ShowLarge},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<TraitGraphic>)> == kMembersOf<TraitGraphic>);

template <>
inline constexpr auto kFieldsOf<TraitBitName> = std::tuple{
    Field{&TraitBitName::Name},
    Field{&TraitBitName::Key},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<TraitBitName>)> == kMembersOf<TraitBitName>);

template <>
inline constexpr auto kFieldsOf<Hit> = std::tuple{
    Field{&Hit::Slot, 0, limits::kTableCards},
    Field{&Hit::Effect, 0, kLargestCount},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<Hit>)> == kMembersOf<Hit>);

template <>
inline constexpr auto kFieldsOf<CustomStringRec> = std::tuple{
    Field{&CustomStringRec::Key},
    Field{&CustomStringRec::Values, 0, limits::kCustomStringValues},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<CustomStringRec>)> ==
              kMembersOf<CustomStringRec>);

template <>
inline constexpr auto kFieldsOf<ProfileRec> = std::tuple{
    Field{&ProfileRec::PlayerName},
    Field{&ProfileRec::PlayerFile},
    Field{&ProfileRec::RulesFile},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<ProfileRec>)> == kMembersOf<ProfileRec>);

template <>
inline constexpr auto kFieldsOf<PlayerFileRec> = std::tuple{
    Field{&PlayerFileRec::Path},      Field{&PlayerFileRec::OnDisk}, Field{&PlayerFileRec::Owned},
    Field{&PlayerFileRec::LeftAlone}, Field{&PlayerFileRec::LetGo},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<PlayerFileRec>)> == kMembersOf<PlayerFileRec>);

template <>
inline constexpr auto kFieldsOf<ShownLinks> = std::tuple{
    Field{&ShownLinks::Games},
    Field{&ShownLinks::Cards},
    Field{&ShownLinks::Composed},
    Field{&ShownLinks::DescribedCard},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<ShownLinks>)> == kMembersOf<ShownLinks>);

template <>
inline constexpr auto kFieldsOf<RandomSource> = std::tuple{Field{&RandomSource::State}};
static_assert(std::tuple_size_v<decltype(kFieldsOf<RandomSource>)> == kMembersOf<RandomSource>);

template <>
inline constexpr auto kFieldsOf<MatchFile> = std::tuple{
    Field{&MatchFile::Name},
    Field{&MatchFile::Hash},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<MatchFile>)> == kMembersOf<MatchFile>);

template <>
inline constexpr auto kFieldsOf<MatchRecord> = std::tuple{
    Field{&MatchRecord::RulesFile},
    Field{&MatchRecord::OpponentFile},
    Field{&MatchRecord::Opponent},
    Field{&MatchRecord::IsVisit},
    Field{&MatchRecord::Turns, 0, kLargestCount},
    Field{&MatchRecord::Winners, 0, 3},
    Field{&MatchRecord::TookBack, 0, 1},
    Field{&MatchRecord::Tokens},
    Field{&MatchRecord::Owned},
    Field{&MatchRecord::Files},
    Field{&MatchRecord::EasiestMind, 0, kHardestMind, 2},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<MatchRecord>)> == kMembersOf<MatchRecord>);

template <>
inline constexpr auto kFieldsOf<CardNews> = std::tuple{
    Field{&CardNews::Fate, 0, static_cast<int>(CardFate::kDrawn)},
    Field{&CardNews::Side},
    Field{&CardNews::Name},
    Field{&CardNews::Change},
    Field{&CardNews::Left},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<CardNews>)> == kMembersOf<CardNews>);

template <>
inline constexpr auto kFieldsOf<RefusedPlan> = std::tuple{
    Field{&RefusedPlan::Name},
    Field{&RefusedPlan::Reason},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<RefusedPlan>)> == kMembersOf<RefusedPlan>);

template <>
inline constexpr auto kFieldsOf<TurnRecord> = std::tuple{
    Field{&TurnRecord::Turn, 0, kLargestCount},
    Field{&TurnRecord::News},
    Field{&TurnRecord::Refusals},
    Field{&TurnRecord::Tokens},
    Field{&TurnRecord::IsTold, 0, 1},
};
// What scripts said stands on the page as well.
inline constexpr auto kLeftOutOfTurn = std::tuple{&TurnRecord::Said};
static_assert(std::tuple_size_v<decltype(kFieldsOf<TurnRecord>)> +
                  std::tuple_size_v<decltype(kLeftOutOfTurn)> ==
              kMembersOf<TurnRecord>);

template <>
inline constexpr auto kFieldsOf<LoggedEvent> = std::tuple{
    Field{&LoggedEvent::Kind, 0, static_cast<int>(MatchEvent::kWon)},
    Field{&LoggedEvent::Side},
    Field{&LoggedEvent::UniqueID},
    Field{&LoggedEvent::Name},
};
static_assert(std::tuple_size_v<decltype(kFieldsOf<LoggedEvent>)> == kMembersOf<LoggedEvent>);

template <>
inline constexpr auto kFieldsOf<MatchLog> = std::tuple{Field{&MatchLog::Events}};
// Worths are asked for only of matches that are played in one go.
inline constexpr auto kLeftOutOfLog = std::tuple{&MatchLog::Worths};
static_assert(std::tuple_size_v<decltype(kFieldsOf<MatchLog>)> +
                  std::tuple_size_v<decltype(kLeftOutOfLog)> ==
              kMembersOf<MatchLog>);

/// What the player owns: the player file's matter as well, so it can be taken or left.
inline constexpr auto kOwnedFields = std::tuple{
    Field{&Session::Collection},
    Field{&Session::Decks},
    Field{&Session::StoredPlayer},
};

/// The rest of what a match consists of.
inline constexpr auto kMatchFields = std::tuple{
    Field{&Session::CardTable, 1, limits::kTableCards},
    Field{&Session::Players},
    Field{&Session::GameDeck},
    Field{&Session::RulesCard},
    Field{&Session::CostCard},
    Field{&Session::Sideboard},
    Field{&Session::TraitActions},
    Field{&Session::TraitGraphics},
    Field{&Session::TraitBitNames, 0, limits::kTraitBitNames},
    Field{&Session::UnsureTraitBits},
    Field{&Session::HasUnsureTraitBits},
    Field{&Session::HitTable},
    Field{&Session::ActionsAdded},
    Field{&Session::CustomStrings, 0, limits::kCustomStrings},
    Field{&Session::StringsCanVanish},
    Field{&Session::DeckRules},
    Field{&Session::PendingCards},
    Field{&Session::PendingCount, 0, limits::kTableCards},
    Field{&Session::WaitingSlots},
    Field{&Session::LastEntered, 0, limits::kTableCards},
    Field{&Session::CurrentDeck, 1, kDecks},
    Field{&Session::GameFileName},
    Field{&Session::StarterDeckFlag, 0, 1},
    // What is planned.
    Field{&Session::PlayQueue},
    Field{&Session::PlayTarget},
    Field{&Session::AwaitingPlayTarget, 0, kHandPositions},
    Field{&Session::SelectedSlot, 0, limits::kTableCards},
    Field{&Session::AwaitingMenuTarget, 0, 1},
    Field{&Session::MenuEffect},
    Field{&Session::PickedCard, 0, kLargestCount},
    Field{&Session::PickedPile, 0, kDecks},
    // What is on pages.
    Field{&Session::PageText},
    Field{&Session::PhaseBanner},
    Field{&Session::LimitsReported},
    Field{&Session::Links},
    // What one script run leaves for the next.
    Field{&Session::LastValue},
    Field{&Session::CancelState, 0, 2},
    Field{&Session::RedirectTarget},
    Field{&Session::RedirectScript},
    Field{&Session::RedirectTraitName},
    Field{&Session::FailReason},
    Field{&Session::HpReport, 0, 2},
    Field{&Session::DeleteRunningEffect, 0, 1},
    Field{&Session::SharedChanceRoll},
    Field{&Session::EchoedOnce, 0, 1},
    Field{&Session::PendingEffectText},
    Field{&Session::PendingEffectCard},
    Field{&Session::BonusCount, 0, kLargestCount},
    Field{&Session::DiceRolled, 0, limits::kDiceOfTurn},
    Field{&Session::StatMasked},
    Field{&Session::StatNotMasked},
    Field{&Session::StatCancelled},
    Field{&Session::Random},
    Field{&Session::Match},
    Field{&Session::LastTurn},
    Field{&Session::Log},
};

/// What is written of it only in part: the files read for references, those of the game.
inline constexpr auto kFilteredFields = std::tuple{Field{&Session::RefCache}};

/// What is not of the match but of the program that plays it, is made anew, or is at rest while
/// nothing runs.
inline constexpr auto kLeftOut = std::tuple{
    // Made anew with each game, or for each read.
    &Session::BitValues, &Session::Games, &Session::CurrentGame, &Session::MasterCards,
    &Session::MasterPlaces, &Session::GiverPlaces, &Session::TraitBitPlaces,
    &Session::CurrentFolder, &Session::ReadDepth, &Session::FileList, &Session::OpenPaths,
    &Session::FilesRead, &Session::Problems, &Session::TwinsTaken, &Session::Lists,
    &Session::InternedTexts, &Session::RandomPictures,
    // Of the program, its user and its windows.
    &Session::Profile, &Session::Profiles, &Session::ProgramFolder, &Session::PagesWritten,
    &Session::CopyOfProgram, &Session::OwnNavigation, &Session::DebugMode, &Session::Quiet,
    &Session::FullSizeImages, &Session::DeckManagerMode, &Session::DeckManagerInGame,
    &Session::PickingCard, &Session::SaleMode, &Session::Services, &Session::Windows,
    &Session::Editor, &Session::TryOpponent, &Session::ThinkOfTurn, &Session::Minds,
    &Session::EnemyPlan, &Session::Desktop, &Session::OpenForms, &Session::OpenEditorForms,
    &Session::ImageBridge, &Session::Trace, &Session::Journal,
    // Of the card editor.
    &Session::Templates, &Session::Crop, &Session::CardFile, &Session::EditCard,
    &Session::CommonTraits, &Session::SingleCardEdit, &Session::TestFromEditor, &Session::Suspended,
    // 0 while no script runs; steps are counted for each turn.
    &Session::TurnRunning, &Session::GameOver, &Session::RunDepth, &Session::RedirectDepth,
    &Session::TraitChangeBusy, &Session::TraitActionsPaused, &Session::TraitRedirectDepth,
    &Session::BonusDepth, &Session::Work};

static_assert(std::tuple_size_v<decltype(kOwnedFields)> +
                      std::tuple_size_v<decltype(kMatchFields)> +
                      std::tuple_size_v<decltype(kFilteredFields)> +
                      std::tuple_size_v<decltype(kLeftOut)> ==
                  kMembersOf<Session>,
              "each member of Session is saved with a match or left out of it");

}  // namespace brindlemoor

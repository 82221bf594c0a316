// Text: a shared piece of UTF-8 text; copying one costs a pointer and a counter.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "text/joined.h"
#include "text/small_blocks.h"

namespace brindlemoor {

/// Something that is worked out once from a text and kept with it. There is one such form, the
/// parsed form of a script (script/parsed_script.h), and it takes for granted that it is the only
/// one.
class TextAttachment {
 public:
  virtual ~TextAttachment() = default;
};

/// UTF-8 text with shared storage; what is shared never changes. The counter is not atomic: the
/// engine has one thread.
/// An empty Text owns nothing. Converts to std::string_view wherever one is wanted.
class Text {
 public:
  Text() noexcept = default;
  Text(const char* text) : Text(std::string_view(text)) {}         // NOLINT: meant to convert
  Text(const std::string& text) : Text(std::string_view(text)) {}  // NOLINT: meant to convert
  Text(std::string_view text) : Text(JoinedPieces{}, text) {}      // NOLINT: meant to convert
  Text(const Text& other) noexcept : rep_(other.rep_) {
    if (rep_ != nullptr) ++rep_->references;
  }
  Text(Text&& other) noexcept : rep_(std::exchange(other.rep_, nullptr)) {}
  /// Assigning what is there already, as a snapshot that is put back mostly does, writes nothing.
  Text& operator=(const Text& other) noexcept {  // NOLINT(bugprone-unhandled-self-assignment)
    if (rep_ != other.rep_) Replace(other);
    return *this;
  }
  Text& operator=(Text&& other) noexcept {
    Text taken(std::move(other));
    std::swap(rep_, taken.rep_);
    return *this;
  }
  ~Text() {
    if (rep_ != nullptr && --rep_->references == 0) Delete(rep_);
  }

  /// The pieces one after the other, put together where they will stay.
  template <class... Pieces>
  static Text Of(const Pieces&... pieces) {
    return Text(JoinedPieces{}, std::string_view(pieces)...);
  }

  /// Puts the pieces behind the text. Storage that nobody shares grows in place, half again at a
  /// time, so that a text that is put together bit by bit is not copied for each.
  template <class... Pieces>
  void Append(const Pieces&... pieces) {
    AppendPieces(std::string_view(pieces)...);
  }

  bool empty() const noexcept { return rep_ == nullptr; }
  std::size_t size() const noexcept { return rep_ != nullptr ? rep_->size : 0; }
  std::string_view View() const noexcept {
    return rep_ != nullptr ? std::string_view(rep_->Characters(), rep_->size) : std::string_view();
  }
  std::string Str() const { return std::string(View()); }
  operator std::string_view() const noexcept { return View(); }  // NOLINT: meant to convert

  /// True when both share one storage, so that comparing characters can be spared.
  bool SharesStorageWith(const Text& other) const noexcept { return rep_ == other.rep_; }

  /// What was attached to this storage last, or nullptr.
  TextAttachment* Attachment() const noexcept {
    return rep_ != nullptr ? rep_->attachment.get() : nullptr;
  }
  /// Keeps a worked-out form with the storage; an empty text can hold none.
  void Attach(std::unique_ptr<TextAttachment> attachment) const {
    if (rep_ != nullptr) rep_->attachment = std::move(attachment);
  }

  friend bool operator==(const Text& a, const Text& b) noexcept {
    return a.rep_ == b.rep_ || a.View() == b.View();
  }
  template <class Other>
  requires(std::convertible_to<const Other&, std::string_view> &&
           !std::same_as<Other, Text>) friend bool
  operator==(const Text& a, const Other& b) noexcept {
    return a.View() == std::string_view(b);
  }

 private:
  /// The head of the storage; the characters follow it in the same piece of memory.
  struct Rep {
    std::uint32_t references = 1;
    std::uint32_t room = 0;  ///< bytes behind the characters
    std::size_t size = 0;
    std::unique_ptr<TextAttachment> attachment{};
    char* Characters() noexcept { return reinterpret_cast<char*>(this + 1); }
  };
  struct JoinedPieces {};

  template <class... Pieces>
  explicit Text(JoinedPieces, Pieces... pieces) {
    const std::size_t size = (pieces.size() + ...);
    if (size == 0) return;
    rep_ = New(size, 0);
    Copy(rep_->Characters(), pieces...);
  }
  template <class... Pieces>
  void AppendPieces(Pieces... pieces) {
    const std::size_t added = (pieces.size() + ...);
    if (added == 0) return;
    if (rep_ == nullptr || rep_->references > 1 || rep_->room < added) {
      const std::size_t size = this->size();
      Text grown;
      grown.rep_ = New(size, static_cast<std::uint32_t>(added + (size + added) / 2));
      Copy(grown.rep_->Characters(), View());
      // The pieces may lie in the text itself.
      Copy(grown.rep_->Characters() + size, pieces...);
      std::swap(rep_, grown.rep_);
    } else {
      Copy(rep_->Characters() + rep_->size, pieces...);
      rep_->attachment.reset();
    }
    rep_->size += added;
    rep_->room -= static_cast<std::uint32_t>(added);
  }
  template <class... Pieces>
  static void Copy(char* to, Pieces... pieces) {
    ((to = std::copy(pieces.begin(), pieces.end(), to)), ...);
  }
  static Rep* New(std::size_t size, std::uint32_t room) {
    return new (SmallBlocks::Take(sizeof(Rep) + size + room)) Rep{.room = room, .size = size};
  }
  // Out of line, so that what is common, assigning the same storage and letting go of a shared one,
  // stays small enough to be inlined into the copies of records.
  void Replace(const Text& other) noexcept;
  static void Delete(Rep* rep) noexcept;

  Rep* rep_ = nullptr;
};

}  // namespace brindlemoor

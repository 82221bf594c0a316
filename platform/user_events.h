// What a user does to a window, as values: they can be told, written down and done again.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

struct Form;

enum class UserEventKind {
  kActivate,    ///< the form came up
  kClose,       ///< the user asks to close the form
  kResize,      ///< the form has another size
  kClick,       ///< of a button, label, option or check box
  kMark,        ///< Number is the mark of an option or check box, 0 or 1
  kType,        ///< Text is what a text or combo box holds now
  kEnter,       ///< the Enter key in a box for text
  kRightClick,  ///< in a text box
  kHelp,        ///< the Help key in a text box; Number is the byte before which the caret is
  kChoose,      ///< Number is the item of a combo or list box, from 1; 0 none
  kOpen,        ///< the same, and the item is opened
  kScroll,      ///< Number is the value of a scroll bar
  kHover,       ///< the pointer or the focus came over a picture
  kPress,       ///< a click on a picture; Number is the MouseButton
  kPointMove,   ///< Number and Y are a place of a picture
  kPointUp,     ///< the same
  kKey,         ///< Number is the PictureKey
  kLink,        ///< Text is the URL of a link that was clicked in a view
  kPoint,       ///< the pointer or the focus came to a link of a view; Text is its URL
  kMenu,        ///< a menu entry was clicked
  kTick,        ///< an interval of a timer has passed
  kCell,        ///< Number and Y are the row and column of the current cell of a grid
  kCellOpen,    ///< the same, and the cell is opened
  kCells,       ///< the same with Text, what goes into this cell and those behind and below it
  kHeading,     ///< Number is the column of a grid
};

struct UserEvent {
  UserEventKind Kind = UserEventKind::kClick;
  std::string Control{};  ///< its name, that of a menu entry or timer; "" for events of the form
  std::string Text{};
  int Number = 0;
  int Y = 0;
  bool operator==(const UserEvent&) const = default;
};

/// The word of a kind and which of Number, Y and Text it carries.
struct UserEventRow {
  UserEventKind Kind;
  std::string_view Word;
  int Numbers = 0;
  bool HasText = false;
};
const UserEventRow& RowOf(UserEventKind kind);
/// nullptr for a word that is no event.
const UserEventRow* FindEventRow(std::string_view word);

/// "" or why no user could do that to this form: there is no such control, or its value is out of
/// bounds.
std::string RefuseEvent(const Form& form, const UserEvent& event);

/// Puts the event's value into the model of its control and calls the handler. What a handler
/// answers: true for a link or a key that needs nothing more, and for a form that stays open. An
/// event that RefuseEvent refuses does nothing.
bool ApplyEvent(Form& form, const UserEvent& event);

/// Is told of each event before the logic gets it, and when the logic has dealt with it.
class EventObserver {
 public:
  virtual ~EventObserver() = default;
  virtual void EventBegins(const Form& form, const UserEvent& event) = 0;
  virtual void EventEnds() = 0;
};

}  // namespace brindlemoor

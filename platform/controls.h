// Plain models of windows and controls. The logic sets properties and is called with events; a
// platform binds each model to something that can be seen.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace brindlemoor {

class Raster;

/// What a binding is told through: set by the platform, called after any property changed.
class Observed {
 public:
  Observed() = default;
  Observed(const Observed&) = delete;
  Observed& operator=(const Observed&) = delete;

  std::function<void()> OnChange;
  void Changed() const {
    if (OnChange) OnChange();
  }

 protected:
  ~Observed() = default;
};

/// A value of a control; assigning a different one tells the binding.
template <class T>
class Property {
 public:
  explicit Property(Observed& owner, T value = T{}) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  Property& operator=(T value) {
    if (!(value_ == value)) {
      value_ = std::move(value);
      owner_.Changed();
    }
    return *this;
  }
  const T& Get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT: reads like the value

 private:
  Observed& owner_;
  T value_;
};

enum class MouseButton { kLeft, kRight };

/// What every control has.
struct Control : Observed {
  explicit Control(std::string name) : Name(std::move(name)) {}
  virtual ~Control() = default;

  const std::string Name;  ///< the control's name, with its number for arrays: "Picture2(3)"
  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<std::string> ToolTip{*this};
  /// What screen readers call a control that shows no words of its own; "" for the tool tip.
  std::string Spoken;

  /// Another number asks for the keyboard: the control gets it, as soon as its window is shown.
  Property<int> FocusCalls{*this, 0};
  void TakeFocus() { FocusCalls = FocusCalls + 1; }
};

struct Button : Control {
  using Control::Control;
  Property<std::string> Caption{*this};
  bool Cancel = false;  ///< the Escape key presses it wherever the focus is
  std::function<void()> Click;
};

struct Label : Control {
  using Control::Control;
  Property<std::string> Caption{*this};
  Property<std::int32_t> TextColor{*this, 0xFFFFFF};  ///< red high, blue low
  bool Headline = false;                              ///< larger and bold
  std::function<void()> Click;
};

/// What a stretch of a text is, for its colour.
enum class TextStyle {
  kPlain,
  kCommand,
  kCondition,
  kName,
  kValue,
  kPlace,
  kMessage,
  kUnknown,
};

/// A stretch of a text; Offset and Length count bytes.
struct TextRun {
  std::size_t Offset = 0;
  std::size_t Length = 0;
  TextStyle Style = TextStyle::kPlain;
  std::string Note{};  ///< what is wrong here: underlined, and told under the pointer
  bool operator==(const TextRun&) const = default;
};

struct TextSuggestion {
  std::string Text;
  std::string Note;  ///< what it means, in a few words
  bool operator==(const TextSuggestion&) const = default;
};

/// What may be typed at a place of a text, in place of the bytes that stand there.
struct TextSuggestions {
  std::size_t Offset = 0;
  std::size_t Length = 0;
  std::vector<TextSuggestion> Items{};
  bool IsOpen = false;  ///< other words are possible as well, so that none is chosen beforehand
};

/// A MultiLine box asks for the colours of its text whenever it or the model changes, and for
/// suggestions while the user types; neither may change anything.
struct TextBox : Control {
  using Control::Control;
  Property<std::string> Text{*this};
  Property<std::string> Placeholder{*this};  ///< shown faintly while there is no text
  Property<bool> MultiLine{*this, false};
  Property<bool> ReadOnly{*this, false};
  bool FormUndoes = false;       ///< the form's menu undoes what was typed, not the box
  std::function<void()> Change;  ///< the user changed the text
  /// The Enter key was pressed. A MultiLine box with this handler holds one line, wrapped.
  std::function<void()> Enter;
  std::function<void()> RightClick;  ///< takes the place of the menu for copying and pasting
  /// The styled stretches in their order; those with a Note may lie over the others.
  std::function<std::vector<TextRun>(const std::string& text)> Runs;
  std::function<TextSuggestions(const std::string& text, std::size_t caret)> Suggest;
  /// F1 was pressed with the caret before this byte. Without it the key is the form's.
  std::function<void(std::size_t caret)> Help;
};

struct ComboBox : Control {
  using Control::Control;
  Property<std::vector<std::string>> Items{*this};
  Property<std::string> Text{*this};
  Property<std::vector<std::string>> ItemToolTips{*this};  ///< of the items, "" for none
  Property<bool> Editable{*this, false};  ///< the user may type a text that is no item
  std::string Placeholder;                ///< of an editable box: shown while there is no text
  bool FormUndoes = false;                ///< see TextBox
  /// Number of the chosen item, from 1; 0 none. It tells items of the same text apart, and counts
  /// only while that item's text is Text.
  Property<int> Selected{*this, 0};
  std::function<void()> Change;  ///< the user typed, or chose an item and there is no Click
  std::function<void()> Click;   ///< the user chose an item
  std::function<void()> Enter;   ///< the Enter key was pressed in an editable box

  /// Chooses an item by its number; 0 chooses none.
  void Select(int item) {
    const bool there = item >= 1 && item <= static_cast<int>(Items.Get().size());
    Selected = there ? item : 0;
    Text = there ? Items.Get()[static_cast<std::size_t>(item) - 1] : std::string();
  }
};

struct ListBox : Control {
  using Control::Control;
  Property<std::vector<std::string>> Items{*this};
  Property<int> Selected{*this, 0};  ///< 1-based, 0 none
  std::function<void()> Click;
  std::function<void()> Open;  ///< a double click on an item, or the Enter key
};

/// A table of texts, of which only what is seen is asked for. Rows and columns count from 1.
struct Grid : Control {
  using Control::Control;
  Property<std::vector<std::string>> Columns{*this};  ///< the headings
  Property<int> RowCount{*this, 0};
  Property<int> Version{*this, 0};  ///< another number says that cells have changed
  Property<int> Row{*this, 0};      ///< where the current cell is; 0 for none
  Property<int> Column{*this, 0};
  std::function<std::string(int row, int column)> CellText;
  std::function<bool(int column)> CanEdit;
  /// The user typed or pasted texts (text/table_text.h); the first belongs to the cell.
  std::function<void(int row, int column, const std::string& texts)> CellsTyped;
  std::function<void()> Open;  ///< a cell that can't be edited, by double click or Enter
  std::function<void(int column)> Header;  ///< a heading was clicked
};

struct OptionButton : Control {
  using Control::Control;
  Property<std::string> Caption{*this};
  Property<bool> Value{*this, false};
  std::function<void()> Click;
};

struct CheckBox : Control {
  using Control::Control;
  Property<std::string> Caption{*this};
  Property<bool> Value{*this, false};
  std::function<void()> Click;
};

struct ScrollBar : Control {
  using Control::Control;
  Property<int> Minimum{*this, 0};
  Property<int> Maximum{*this, 0};
  Property<int> Value{*this, 0};
  Property<int> SmallStep{*this, 1};
  Property<int> LargeStep{*this, 1};
  std::function<void()> Change;  ///< the user moved it; Value is already the new one
};

/// Keys that move about among pictures.
enum class PictureKey { kLeft, kRight, kUp, kDown, kPageUp, kPageDown, kHome, kEnd };

/// A rectangle drawn over a picture; places are those of the picture as it is shown, from 0.
struct PictureMark {
  int X1 = 0;
  int Y1 = 0;
  int X2 = 0;
  int Y2 = 0;
  bool Guide = false;  ///< a fainter line that only advises
  bool operator==(const PictureMark&) const = default;
};

/// Shows an image file or a drawing, scaled into the box with its proportion kept.
struct PictureBox : Control {
  using Control::Control;
  Property<std::string> Picture{*this};  ///< path of the image file, "" for none
  /// What the program drew; it is shown in place of Picture. Assigning another raster shows that.
  Property<std::shared_ptr<const Raster>> Drawing{*this};
  /// The size in which the picture is shown from the upper left corner of the box, whatever the
  /// picture's own, in pixels at 96 dpi; 0 scales it into the box.
  Property<int> ViewWidth{*this, 0};
  Property<int> ViewHeight{*this, 0};
  Property<std::vector<PictureMark>> Marks{*this};
  Property<std::string> Caption{*this};  ///< shown where the image is missing or broken
  Property<std::string> Badge{*this};    ///< a few words at the lower edge, "" for none
  Property<bool> Dimmed{*this, false};   ///< cannot be used now
  Property<bool> Framed{*this, false};   ///< is chosen
  Property<std::string> Told{*this};     ///< what screen readers tell beside the card's name
  bool FrameWhenEmpty = false;           ///< with nothing to show a faint frame is drawn
  bool TogglesByClick = false;           ///< a double click counts as one
  std::string DragGroup;  ///< can be dragged to the boxes of other groups; "" for not at all
  std::function<void()> MouseMove;           ///< the pointer or the focus came over the box
  std::function<void(MouseButton)> MouseUp;  ///< a click; a drop on another group is a left one
  /// The pointer moved over the picture, or the left button went up over it; x and y are places of
  /// the picture as it is shown, in pixels at 96 dpi.
  std::function<void(int x, int y)> PointMove;
  std::function<void(int x, int y)> PointUp;
  /// A key was pressed in the box; up and down only where none of its drag group lies that way.
  /// True when that was all; else the focus moves to a neighbour.
  std::function<bool(PictureKey)> KeyDown;
};

/// One bar of a bar chart.
struct ChartBar {
  std::string Label;
  int Count = 0;
  bool operator==(const ChartBar&) const = default;
};

/// A small drawing of upright bars, each with its count and its label, under a caption.
struct BarChart : Control {
  using Control::Control;
  Property<std::string> Caption{*this};
  Property<std::vector<ChartBar>> Bars{*this};
};

/// How far something has come.
struct ProgressBar : Control {
  using Control::Control;
  Property<int> Maximum{*this, 0};
  Property<int> Value{*this, 0};
};

/// What the pointer is told over the pictures of a page that come from a file.
struct PictureTip {
  std::string File;  ///< without folders, in any case
  std::string Words;
  bool operator==(const PictureTip&) const = default;
};

/// A link around the words that a table cell of a page begins with, where no picture of the cell
/// can be clicked.
struct CellLink {
  std::string Words;
  std::string Link;
  bool operator==(const CellLink&) const = default;
};

/// A mark behind the words of a link, and what the pointer is told over it.
struct LinkMark {
  std::string Link;  ///< as it stands in the page
  std::string Mark;
  std::string Words;
  bool operator==(const LinkMark&) const = default;
};

/// A browser view. Navigations that a click in a page starts are asked for with their URL.
struct BrowserView : Control {
  using Control::Control;
  Property<std::string> Url{*this};  ///< what the program showed last
  Property<std::vector<PictureTip>> PictureTips{*this};
  Property<std::vector<CellLink>> CellLinks{*this};         ///< in the order of the cells
  Property<std::vector<std::string>> OutlinedLinks{*this};  ///< as they stand in the page
  Property<std::vector<LinkMark>> LinkMarks{*this};
  bool StartsAtFirstLink = false;  ///< when it is given the focus; else where it was left
  /// So long the pointer rests on a link until LinkPointed is called, in milliseconds.
  Property<int> PointDelay{*this, 0};
  /// Asked before a click navigates; true cancels the navigation.
  std::function<bool(const std::string& url)> BeforeNavigate;
  /// The pointer or the focus came to a link. Nothing is told when it leaves.
  std::function<void(const std::string& url)> LinkPointed;
};

/// Calls Tick after every interval while its form is shown. A tick is left out while another window
/// is in front of the form, a list is open or a page is being read. Switched off and on again, it
/// begins its interval anew.
struct Timer : Observed {
  explicit Timer(std::string name) : Name(std::move(name)) {}
  const std::string Name;
  Property<int> Interval{*this, 0};  ///< milliseconds; without any there are no ticks
  Property<bool> Enabled{*this, false};
  std::function<void()> Tick;
};

/// A menu entry, a submenu (with Items) or the menu bar itself.
struct MenuItem : Observed {
  MenuItem(std::string name, std::string caption)
      : Name(std::move(name)), Caption(*this, std::move(caption)) {}
  const std::string Name;
  Property<std::string> Caption;
  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<bool> Checkable{*this, false};
  Property<bool> Checked{*this, false};
  Property<std::string> Shortcut{*this};  ///< such as "F1" or "Ctrl+S"
  std::function<void()> Click;
  std::vector<MenuItem*> Items;
};

/// A frame around other controls, which are hidden with it.
struct Frame : Control {
  using Control::Control;
  Property<std::string> Caption{*this};
};

/// How a form arranges its controls: nested rows and columns, and grids of equal cells. A leaf
/// names one control; an element with neither a control nor children is empty space. A scroll bar
/// stands upright in a row.
struct Layout {
  enum class Kind { kControl, kRow, kColumn, kGrid };
  Kind Direction = Kind::kColumn;
  Control* Leaf = nullptr;
  std::vector<Layout> Children{};
  int Stretch = 0;         ///< share of spare room, 0 keeps the natural size
  int Width = 0;           ///< fixed width in pixels at 96 dpi, 0 natural
  int Height = 0;          ///< fixed height, 0 natural
  int Columns = 1;         ///< a grid has a multiple of so many: those that show its cells largest
  bool Shrinks = false;    ///< Height is the most; where the window is low it may be half
  bool Collapses = false;  ///< takes no room while none of its controls is shown
  std::string Title{};     ///< caption of a frame around the children, "" for no frame
  Frame* Group = nullptr;  ///< the frame around the children where it is a control itself
};

/// A window: its caption, its arrangement, its menus and its events.
struct Form : Observed {
  explicit Form(std::string name) : Name(std::move(name)) {}
  virtual ~Form() = default;

  const std::string Name;
  Property<std::string> Caption{*this};
  Property<bool> Shown{*this, false};  ///< kept by the platform
  Layout Arrangement;
  std::vector<MenuItem*> Menus;
  std::vector<Timer*> Timers;
  int Width = 0;  ///< first size in pixels, 0 natural
  int Height = 0;
  bool Maximised = false;

  std::function<void()> Activate;
  std::function<void()> Resize;
  /// The user asks to close; true keeps the form open. Without it the form hides.
  std::function<bool()> QueryClose;
};

}  // namespace brindlemoor

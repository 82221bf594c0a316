// Finding an event's control in its form, and handing the event to it.
#include "platform/user_events.h"

#include <algorithm>
#include <array>

#include "platform/controls.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::array<UserEventRow, 25> kRows = {{
    {UserEventKind::kActivate, "activate"},
    {UserEventKind::kClose, "close"},
    {UserEventKind::kResize, "resize"},
    {UserEventKind::kClick, "click"},
    {UserEventKind::kMark, "mark", 1},
    {UserEventKind::kType, "type", 0, true},
    {UserEventKind::kEnter, "enter"},
    {UserEventKind::kRightClick, "rightclick"},
    {UserEventKind::kHelp, "help", 1},
    {UserEventKind::kChoose, "choose", 1},
    {UserEventKind::kOpen, "open", 1},
    {UserEventKind::kScroll, "scroll", 1},
    {UserEventKind::kHover, "hover"},
    {UserEventKind::kPress, "press", 1},
    {UserEventKind::kPointMove, "pointmove", 2},
    {UserEventKind::kPointUp, "pointup", 2},
    {UserEventKind::kKey, "key", 1},
    {UserEventKind::kLink, "link", 0, true},
    {UserEventKind::kPoint, "point", 0, true},
    {UserEventKind::kMenu, "menu"},
    {UserEventKind::kTick, "tick"},
    {UserEventKind::kCell, "cell", 2},
    {UserEventKind::kCellOpen, "cellopen", 2},
    {UserEventKind::kCells, "cells", 2, true},
    {UserEventKind::kHeading, "heading", 1},
}};

constexpr int kLargestPlace = 65535;  // of a point in a picture

bool Between(int value, int least, int most) { return value >= least && value <= most; }

Control* FindIn(const Layout& layout, std::string_view name) {
  if (layout.Leaf != nullptr && layout.Leaf->Name == name) return layout.Leaf;
  for (const Layout& child : layout.Children) {
    if (Control* found = FindIn(child, name)) return found;
  }
  return nullptr;
}

MenuItem* FindIn(const std::vector<MenuItem*>& items, std::string_view name) {
  for (MenuItem* item : items) {
    if (item->Name == name) return item;
    if (MenuItem* found = FindIn(item->Items, name)) return found;
  }
  return nullptr;
}

/// One event on its way to the model that it belongs to.
struct Delivery {
  const Form& Window;
  const UserEvent& Event;

  Control* Target() const { return FindIn(Window.Arrangement, Event.Control); }
  template <class Model>
  Model* As() const {
    return dynamic_cast<Model*>(Target());
  }
  MenuItem* Menu() const { return FindIn(Window.Menus, Event.Control); }
  Timer* Clock() const {
    const auto found = std::ranges::find(Window.Timers, Event.Control, &Timer::Name);
    return found == Window.Timers.end() ? nullptr : *found;
  }

  bool IsPossible() const;
  bool HasTarget() const;
  bool IsInBounds() const;
  bool Apply(Form& form) const;
  bool ApplyToControl(Control& control) const;
  void ApplyToPicture(const PictureBox& picture) const;
  void ApplyToGrid(Grid& grid) const;
};

/// The control is there and of a kind that knows such events.
bool Delivery::HasTarget() const {
  switch (Event.Kind) {
    case UserEventKind::kActivate:
    case UserEventKind::kClose:
    case UserEventKind::kResize:
      return Event.Control.empty();
    case UserEventKind::kClick:
      return As<Button>() || As<Label>() || As<OptionButton>() || As<CheckBox>();
    case UserEventKind::kMark:
      return As<OptionButton>() || As<CheckBox>();
    case UserEventKind::kType:
    case UserEventKind::kEnter:
      return As<TextBox>() || As<ComboBox>();
    case UserEventKind::kRightClick:
    case UserEventKind::kHelp:
      return As<TextBox>();
    case UserEventKind::kChoose:
      return As<ComboBox>() || As<ListBox>();
    case UserEventKind::kOpen:
      return As<ListBox>();
    case UserEventKind::kScroll:
      return As<ScrollBar>();
    case UserEventKind::kHover:
    case UserEventKind::kPress:
    case UserEventKind::kPointMove:
    case UserEventKind::kPointUp:
    case UserEventKind::kKey:
      return As<PictureBox>();
    case UserEventKind::kLink:
    case UserEventKind::kPoint:
      return As<BrowserView>();
    case UserEventKind::kMenu:
      return Menu();
    case UserEventKind::kTick:
      return Clock();
    case UserEventKind::kCell:
    case UserEventKind::kCellOpen:
    case UserEventKind::kCells:
    case UserEventKind::kHeading:
      return As<Grid>();
  }
  return false;
}

bool Delivery::IsInBounds() const {
  switch (Event.Kind) {
    case UserEventKind::kMark:
      return Between(Event.Number, 0, 1);
    case UserEventKind::kHelp:
      return Between(Event.Number, 0, static_cast<int>(As<TextBox>()->Text.Get().size()));
    case UserEventKind::kChoose:
    case UserEventKind::kOpen: {
      const auto* combo = As<ComboBox>();
      const auto& items = combo != nullptr ? combo->Items.Get() : As<ListBox>()->Items.Get();
      const int least = Event.Kind == UserEventKind::kOpen ? 1 : 0;
      return Between(Event.Number, least, static_cast<int>(items.size()));
    }
    case UserEventKind::kScroll: {
      const auto* bar = As<ScrollBar>();
      return Between(Event.Number, bar->Minimum, std::max(bar->Minimum.Get(), bar->Maximum.Get()));
    }
    case UserEventKind::kPress:
      return Between(Event.Number, 0, static_cast<int>(MouseButton::kRight));
    case UserEventKind::kPointMove:
    case UserEventKind::kPointUp:
      return Between(Event.Number, 0, kLargestPlace) && Between(Event.Y, 0, kLargestPlace);
    case UserEventKind::kKey:
      return Between(Event.Number, 0, static_cast<int>(PictureKey::kEnd));
    case UserEventKind::kCell:
    case UserEventKind::kCellOpen:
    case UserEventKind::kCells: {
      const auto* grid = As<Grid>();
      return Between(Event.Number, 1, grid->RowCount) &&
             Between(Event.Y, 1, static_cast<int>(grid->Columns.Get().size()));
    }
    case UserEventKind::kHeading:
      return Between(Event.Number, 1, static_cast<int>(As<Grid>()->Columns.Get().size()));
    default:
      return true;
  }
}

bool Delivery::IsPossible() const { return HasTarget() && IsInBounds(); }

bool Delivery::Apply(Form& form) const {
  const auto call = [](const std::function<void()>& handler) {
    if (handler) handler();
    return false;
  };
  switch (Event.Kind) {
    case UserEventKind::kActivate:
      return call(form.Activate);
    case UserEventKind::kResize:
      return call(form.Resize);
    case UserEventKind::kClose:
      return form.QueryClose && form.QueryClose();
    case UserEventKind::kMenu:
      return call(Menu()->Click);
    case UserEventKind::kTick:
      return call(Clock()->Tick);
    default:
      return ApplyToControl(*Target());
  }
}

/// Takes over what the user did; the handler that is to be called.
const std::function<void()>* Take(Button& button, const UserEvent&) { return &button.Click; }
const std::function<void()>* Take(Label& label, const UserEvent&) { return &label.Click; }
const std::function<void()>* Take(ScrollBar& bar, const UserEvent& event) {
  bar.Value = event.Number;
  return &bar.Change;
}
template <class Mark>
const std::function<void()>* TakeMark(Mark& mark, const UserEvent& event) {
  if (event.Kind == UserEventKind::kClick) return &mark.Click;
  mark.Value = event.Number == 1;
  return nullptr;
}
const std::function<void()>* Take(OptionButton& option, const UserEvent& event) {
  return TakeMark(option, event);
}
const std::function<void()>* Take(CheckBox& box, const UserEvent& event) {
  return TakeMark(box, event);
}
const std::function<void()>* Take(TextBox& box, const UserEvent& event) {
  if (event.Kind == UserEventKind::kHelp) {
    if (box.Help) box.Help(static_cast<std::size_t>(event.Number));
    return nullptr;
  }
  if (event.Kind == UserEventKind::kEnter) return &box.Enter;
  if (event.Kind == UserEventKind::kRightClick) return &box.RightClick;
  box.Text = event.Text;
  return &box.Change;
}
const std::function<void()>* Take(ComboBox& combo, const UserEvent& event) {
  if (event.Kind == UserEventKind::kChoose) {
    combo.Select(event.Number);
    return combo.Click ? &combo.Click : &combo.Change;
  }
  if (event.Kind == UserEventKind::kEnter) return &combo.Enter;
  combo.Selected = 0;
  combo.Text = event.Text;
  return &combo.Change;
}
const std::function<void()>* Take(ListBox& list, const UserEvent& event) {
  list.Selected = event.Number;
  return event.Kind == UserEventKind::kOpen ? &list.Open : &list.Click;
}

template <class Model>
bool TryTake(Control& control, const UserEvent& event) {
  auto* model = dynamic_cast<Model*>(&control);
  if (model == nullptr) return false;
  const std::function<void()>* handler = Take(*model, event);
  if (handler != nullptr && *handler) (*handler)();
  return true;
}

bool Delivery::ApplyToControl(Control& control) const {
  if (auto* view = dynamic_cast<BrowserView*>(&control)) {
    if (Event.Kind == UserEventKind::kLink) {
      return view->BeforeNavigate && view->BeforeNavigate(Event.Text);
    }
    if (view->LinkPointed) view->LinkPointed(Event.Text);
    return false;
  }
  if (auto* picture = dynamic_cast<PictureBox*>(&control)) {
    if (Event.Kind != UserEventKind::kKey) {
      ApplyToPicture(*picture);
      return false;
    }
    return picture->KeyDown && picture->KeyDown(static_cast<PictureKey>(Event.Number));
  }
  if (auto* grid = dynamic_cast<Grid*>(&control)) {
    ApplyToGrid(*grid);
    return false;
  }
  for (const auto take :
       {TryTake<Button>, TryTake<Label>, TryTake<TextBox>, TryTake<ComboBox>, TryTake<ListBox>,
        TryTake<ScrollBar>, TryTake<OptionButton>, TryTake<CheckBox>}) {
    if (take(control, Event)) break;
  }
  return false;
}

void Delivery::ApplyToPicture(const PictureBox& picture) const {
  switch (Event.Kind) {
    case UserEventKind::kHover:
      if (picture.MouseMove) picture.MouseMove();
      break;
    case UserEventKind::kPress:
      if (picture.MouseUp) picture.MouseUp(static_cast<MouseButton>(Event.Number));
      break;
    case UserEventKind::kPointMove:
      if (picture.PointMove) picture.PointMove(Event.Number, Event.Y);
      break;
    default:
      if (picture.PointUp) picture.PointUp(Event.Number, Event.Y);
  }
}

void Delivery::ApplyToGrid(Grid& grid) const {
  if (Event.Kind == UserEventKind::kHeading) {
    if (grid.Header) grid.Header(Event.Number);
    return;
  }
  grid.Row = Event.Number;
  grid.Column = Event.Y;
  if (Event.Kind == UserEventKind::kCellOpen && grid.Open) grid.Open();
  if (Event.Kind == UserEventKind::kCells && grid.CellsTyped) {
    grid.CellsTyped(Event.Number, Event.Y, Event.Text);
  }
}

}  // namespace

const UserEventRow& RowOf(UserEventKind kind) { return kRows[static_cast<std::size_t>(kind)]; }

const UserEventRow* FindEventRow(std::string_view word) {
  const auto* const row = std::ranges::find(kRows, word, &UserEventRow::Word);
  return row == kRows.end() ? nullptr : &*row;
}

std::string RefuseEvent(const Form& form, const UserEvent& event) {
  const Delivery delivery{form, event};
  if (!delivery.HasTarget()) {
    return Joined(form.Name, " has no \"", event.Control, "\" for the event ",
                  RowOf(event.Kind).Word);
  }
  if (delivery.IsInBounds()) return "";
  return Joined("\"", event.Control, "\" of ", form.Name, " has no value ", event.Number);
}

bool ApplyEvent(Form& form, const UserEvent& event) {
  const Delivery delivery{form, event};
  return delivery.IsPossible() && delivery.Apply(form);
}

}  // namespace brindlemoor

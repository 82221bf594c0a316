// Standing between the widgets that paint themselves and the screen readers.
#include "platform/qt/spoken_widget.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace brindlemoor {

namespace {

constexpr const char* kSpoken = "spoken";  // a property: some of Qt's objects can't be cast

SpokenWidget* SpokenOf(const QObject& object) {
  return static_cast<SpokenWidget*>(object.property(kSpoken).value<void*>());
}

class SpokenInterface : public QAccessibleWidget {
 public:
  using QAccessibleWidget::QAccessibleWidget;

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (role() == QAccessible::Button) names.prepend(pressAction());
    return names;
  }
  void doAction(const QString& name) override {
    SpokenWidget* spoken = SpokenOf(*widget());
    if (name != pressAction()) {
      QAccessibleWidget::doAction(name);
    } else if (spoken != nullptr && widget()->isEnabled() && widget()->isVisible()) {
      spoken->Press();
    }
  }
};

QAccessibleInterface* InterfaceOf(const QString& /*className*/, QObject* object) {
  const SpokenWidget* spoken = object == nullptr ? nullptr : SpokenOf(*object);
  if (spoken == nullptr) return nullptr;
  return new SpokenInterface(static_cast<QWidget*>(object), spoken->Role());
}

}  // namespace

SpokenWidget::SpokenWidget(QWidget& widget) : widget_(widget) {
  widget.setProperty(kSpoken, QVariant::fromValue(static_cast<void*>(this)));
}

SpokenWidget::~SpokenWidget() { widget_.setProperty(kSpoken, {}); }

void SpeakForOwnWidgets() { QAccessible::installFactory(&InterfaceOf); }

}  // namespace brindlemoor

// The Qt window in its own process: linked beside the program's own objects, and begun by its QApplication.
#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "driver.h"

namespace driver {

namespace {

void StepByStep() {
  QTimer::singleShot(5, StepByStep);  // first: the step may open a dialog and return only when that is closed
  Step();
}
Q_COREAPP_STARTUP_FUNCTION(StepByStep)

QWidget* Form() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "Mission") return window;
  }
  return nullptr;
}

QWidget& Find(const std::string& control) {
  return *Form()->findChild<QWidget*>(QString::fromStdString(control));
}

template <class Dialog>
Dialog* Open() {
  return dynamic_cast<Dialog*>(QApplication::activeModalWidget());
}

QLineEdit& NameField() {
  return *Open<QFileDialog>()->template findChild<QLineEdit*>("fileNameEdit");
}

QString WholeText(const QWidget& control) {
  if (const auto* label = dynamic_cast<const QLabel*>(&control)) return label->text();
  if (const auto* button = dynamic_cast<const QPushButton*>(&control)) return button->text();
  if (const auto* text = dynamic_cast<const QPlainTextEdit*>(&control)) return text->toPlainText();
  return "";
}

QString Read(QWidget& control, QAccessible::Text what) {
  return QAccessible::queryAccessibleInterface(&control)->text(what);
}

std::string FlawOf(QLabel& label) {
  if (Read(label, QAccessible::Name) == Read(label, QAccessible::Description)) return "read out twice";
  if (label.objectName() == "Label1" && label.font().family() != "MS Sans Serif") return "in another face";
  const QSize whole = label.sizeHint();
  if (whole.width() <= label.width() && whole.height() <= label.height()) return "";
  if (label.objectName() != "ltarget") return "cut";
  QHelpEvent rest(QEvent::ToolTip, label.rect().center(), label.mapToGlobal(label.rect().center()));
  QApplication::sendEvent(&label, &rest);
  const bool hasTip = QToolTip::text().contains(label.text().section('/', -1));
  QToolTip::hideText();
  return hasTip ? "" : "cut, without a tip";
}

std::string FlawOf(QPlainTextEdit& text) {
  if (!text.isReadOnly()) return "editable";
  if (text.verticalScrollBar()->maximum() > 0) return "cut";
  if (Read(text, QAccessible::Name) != "Hint") return "without its name";
  const QImage image = text.grab().toImage();
  const int inside = qRound(2 * image.devicePixelRatio()) - 1;  // of the frame that every text box has
  const bool framed = image.pixelColor(inside, image.height() / 2) != text.palette().color(QPalette::Base);
  return framed != text.hasFocus() ? "with a wrong focus frame" : "";
}

bool InSight(const QWidget& control) {
  return control.visibleRegion().boundingRect() == control.rect();
}

std::string Flaw(QWidget& control) {
  if (control.hasFocus() && !InSight(control)) return "out of sight";
  if (auto* label = dynamic_cast<QLabel*>(&control)) return FlawOf(*label);
  if (auto* text = dynamic_cast<QPlainTextEdit*>(&control)) return FlawOf(*text);
  const QSize whole = control.sizeHint();
  return whole.width() <= control.width() && whole.height() <= control.height() ? "" : "cut";
}

QWidget* TakingKeys() {
  return QApplication::activePopupWidget() ? QApplication::activePopupWidget() : QApplication::focusWidget();
}

}  // namespace

Front FrontNow() {
  QWidget* front = Open<QWidget>() != nullptr ? Open<QWidget>() : Form();
  if (front == nullptr || !front->isVisible()) return Front::Nothing;
  front->activateWindow();
  if (!front->isActiveWindow()) return Front::Nothing;
  return Open<QMessageBox>() != nullptr   ? Front::MessageBox
         : Open<QFileDialog>() != nullptr ? Front::FileDialog
                                          : Front::Form;
}

bool FormIsShown() {
  return Form() != nullptr && Form()->isVisible();
}
void CloseForm() {
  Form()->close();
}
void GiveUp() {
  std::_Exit(3);
}

std::vector<Control> Controls() {
  QList<QWidget*> controls = Find("ExitB").parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  std::ranges::sort(controls, {}, &QWidget::y);
  static const QSize firstSize = Form()->size();
  const QSize room = Form()->screen()->availableSize();
  const bool fits = Form()->size().boundedTo(room) == Form()->size();
  std::vector<Control> all{{"Mission", Form()->windowTitle().toStdString(),
                            !fits                         ? "larger than the screen"
                            : Form()->size() != firstSize ? "of another size"
                                                          : ""}};
  for (QWidget* control : controls) {
    all.push_back({control->objectName().toStdString(), WholeText(*control).toStdString(), Flaw(*control)});
  }
  return all;
}
std::string TextOf(const std::string& control) {
  return WholeText(Find(control)).toStdString();
}
bool IsEnabled(const std::string& control) {
  return Find(control).isEnabled();
}
bool IsInSight(const std::string& control) {
  return InSight(Find(control));
}
std::string Focused() {
  return QApplication::focusWidget() ? QApplication::focusWidget()->objectName().toStdString() : "";
}
void TurnWheel(bool down) {
  auto* area = dynamic_cast<QAbstractScrollArea*>(Form());
  if (area == nullptr) return;
  const QPointF centre = area->viewport()->rect().center();
  QWheelEvent turn(centre, area->viewport()->mapToGlobal(centre), QPoint(), QPoint(0, down ? -120 : 120), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(area->viewport(), &turn);
}
void Press(const std::string& control) {
  QTest::mouseClick(&Find(control), Qt::LeftButton);
}
void PressKey(const std::string& key) {
  QTest::keyClick(QApplication::focusWidget(), key == "tab"     ? Qt::Key_Tab
                                               : key == "space" ? Qt::Key_Space
                                                                : Qt::Key_Return);
}

std::string NameInDialog() {
  const QFileDialog& dialog = *Open<QFileDialog>();
  const QString name = NameField().text();
  const bool listsByIt = dialog.nameFilters() == QStringList(name);
  return name.toStdString() + (listsByIt == (name.contains('*') || name.contains('?'))
                                   ? ""
                                   : "] lists [" + dialog.nameFilters()[0].toStdString());
}
void AnswerDialog(const std::string& name) {
  NameField().selectAll();
  for (const QChar letter : QString::fromStdString(name)) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letter);
    QApplication::sendEvent(&NameField(), &press);
  }
  QTest::keyClick(TakingKeys(), Qt::Key_Return);
}
void CancelDialog() {
  QTest::keyClick(TakingKeys(), Qt::Key_Escape);
}
std::string MessageInBox() {
  return Open<QMessageBox>()->text().toStdString();
}
bool BoxIsCentred() {
  const QWidget& box = *Open<QMessageBox>();
  const QPoint off = box.geometry().center() - box.screen()->availableGeometry().center();
  return off.manhattanLength() < 100;  // Qt guesses the size of the frame
}
void AnswerBox() {
  QTest::keyClick(Open<QMessageBox>(), Qt::Key_Return);
}

}  // namespace driver

// The Qt window in its own process: linked beside the program's own objects, and begun by its QApplication.
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
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
  return *Form()->findChild<QWidget*>(QString::fromStdString(control), Qt::FindDirectChildrenOnly);
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

std::string Flaw(const QWidget& control) {
  if (const auto* text = dynamic_cast<const QPlainTextEdit*>(&control)) {
    return !text->isReadOnly() ? "editable" : text->verticalScrollBar()->maximum() > 0 ? "cut" : "";
  }
  const QSize whole = control.sizeHint();
  if (whole.width() <= control.width() && whole.height() <= control.height()) return "";
  if (control.objectName() != "ltarget") return "cut";
  return control.toolTip().isEmpty() ? "cut, without a tip" : "";
}

}  // namespace

Front FrontNow() {
  // The names that complete what was typed: on a busy machine they pop up late, and hold the keys.
  if (QWidget* completions = QApplication::activePopupWidget()) completions->close();
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
  QList<QWidget*> controls = Form()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  std::ranges::sort(controls, {}, &QWidget::y);
  static const QSize firstSize = Form()->size();
  std::vector<Control> all{
      {"Mission", Form()->windowTitle().toStdString(), Form()->size() == firstSize ? "" : "of another size"}};
  for (const QWidget* control : controls) {
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
std::string Focused() {
  return QApplication::focusWidget() ? QApplication::focusWidget()->objectName().toStdString() : "";
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
  if (QWidget* completions = QApplication::activePopupWidget()) completions->close();
  QTest::keyClick(&NameField(), Qt::Key_Return);
}
void CancelDialog() {
  QTest::keyClick(Open<QFileDialog>(), Qt::Key_Escape);
}
std::string MessageInBox() {
  return Open<QMessageBox>()->text().toStdString();
}
void AnswerBox() {
  QTest::keyClick(Open<QMessageBox>(), Qt::Key_Return);
}

}  // namespace driver

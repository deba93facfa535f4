// The least that a Qt window with the controls of Velmoran's form costs: as Qt makes them, in its own font and sizes,
// and no file is read.
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  auto* controls = new QVBoxLayout(&window);
  const auto addLabel = [&](const char* text) { controls->addWidget(new QLabel(text)); };
  const auto addButton = [&](const char* text) { controls->addWidget(new QPushButton(text)); };
  const auto addRule = [&] {
    auto* rule = new QFrame;
    rule->setFrameShape(QFrame::HLine);
    controls->addWidget(rule);
  };
  addLabel("A plain window");
  addLabel("with the same controls");
  addRule();
  addButton("Open Mission File");
  addLabel("Target: ");
  addRule();
  addButton("Massage Data");
  addRule();
  addButton("Generate Report");
  addRule();
  addButton("Write Mission File");
  addRule();
  auto* text = new QPlainTextEdit(
      "Press Open to open a mission (campgn??.mis) file.  "
      "When you have opened the mission file the filename will appear");
  text->setReadOnly(true);
  controls->addWidget(text);
  addRule();
  addButton("Exit");
  window.show();
  return QApplication::exec();
}

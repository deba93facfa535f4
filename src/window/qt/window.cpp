// The form as a Qt window. Every control bears its name as its object name.

#include <QApplication>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QResource>
#include <QSettings>
#include <QVBoxLayout>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/platform.h"
#include "window/captions.h"
#include "window/events.h"

namespace velmoran {

namespace {

constexpr int Margin = 24, BandSpace = 14, LineSpace = 4;                            // in device-independent pixels
constexpr int ButtonColumns = 28, HintColumns = 64, HintLines = 4, ButtonLines = 2;  // in characters of the system font
constexpr double TitleSize = 2.2;  // of Label1, in sizes of the system font

// Shows its text shortened in the middle where it is wider than its place; text() is whole.
class TargetLabel : public QLabel {
 public:
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter(this).drawText(rect(), Qt::AlignCenter, fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
  }
};

class MissionForm : public QWidget {
 public:
  explicit MissionForm(const RunState& state) : run(state) {}

 protected:
  void closeEvent(QCloseEvent* /*event*/) override { ExitB_Click(run); }

 private:
  const RunState& run;
};

// What the functions of the seam work on.
struct Form {
  MissionForm* window;
  std::array<QPushButton*, 5> buttons;  // by Button
  TargetLabel* target;
  QPlainTextEdit* hint;
};
Form form;

QPushButton*& ButtonOf(Button button) {
  return form.buttons[static_cast<std::size_t>(button)];
}

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Does a button's event. Where that disables the button, the next control that can have the focus takes it.
void Do(RunState& run, Button button) noexcept {
  Press(run, button);
  QWidget* focus = ButtonOf(button);
  while (!focus->isEnabled() || (focus->focusPolicy() & Qt::TabFocus) == 0) focus = focus->nextInFocusChain();
  focus->setFocus();
}

// Builds the form: bands from top to bottom, parted by rules. The order of the calls is the tab order.
void BuildForm(RunState& run) {
  form.window = new MissionForm(run);
  form.window->setObjectName("Mission");
  form.window->setWindowTitle(ToQt(captions::Mission));
  const int column = form.window->fontMetrics().averageCharWidth(), line = form.window->fontMetrics().lineSpacing();

  auto* bands = new QVBoxLayout(form.window);
  bands->setContentsMargins(Margin, Margin, Margin, Margin);
  bands->setSpacing(BandSpace);
  QVBoxLayout* band = nullptr;
  int rules = 0;
  const auto beginBand = [&](int stretch = 0) {
    if (band != nullptr) {
      auto* rule = new QFrame;
      rule->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
      rule->setObjectName("Line" + QString::number(++rules));
      bands->addWidget(rule);
    }
    band = new QVBoxLayout;
    band->setSpacing(LineSpace);
    bands->addLayout(band, stretch);
  };
  const auto addLabel = [&](QLabel* label, const char* name, std::string_view caption) {
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setText(ToQt(caption));
    label->setAlignment(Qt::AlignCenter);
    band->addWidget(label);
  };
  const auto addButton = [&](Button button, const char* name, std::string_view caption) {
    auto* control = new QPushButton(ToQt(caption));
    control->setObjectName(name);
    control->setAutoDefault(true);  // Enter presses it as well as Space
    control->setMinimumSize(ButtonColumns * column, ButtonLines * line);
    QObject::connect(control, &QPushButton::clicked, [&run, button] { Do(run, button); });
    band->addWidget(control, 0, Qt::AlignHCenter);
    ButtonOf(button) = control;
  };

  beginBand();
  auto* title = new QLabel;
  QFont large = title->font();
  large.setPointSizeF(QFontInfo(large).pointSizeF() * TitleSize);
  title->setFont(large);
  addLabel(title, "Label1", captions::Label1);
  addLabel(new QLabel, "Label2", captions::Label2);

  beginBand();
  addButton(Button::OpenB, "OpenB", captions::OpenB);
  form.target = new TargetLabel;
  addLabel(form.target, "ltarget", captions::ltarget);

  beginBand();
  addButton(Button::MassageB, "MassageB", captions::MassageB);
  beginBand();
  addButton(Button::ReportB, "ReportB", captions::ReportB);
  beginBand();
  addButton(Button::WriteB, "WriteB", captions::WriteB);

  beginBand(1);
  form.hint = new QPlainTextEdit;
  form.hint->setObjectName("HintT");
  form.hint->setAccessibleName("HintT");
  form.hint->setReadOnly(true);
  form.hint->setMinimumSize(HintColumns * column, (HintLines + 1) * line);  // one for the frame
  form.hint->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  band->addWidget(form.hint);

  beginBand();
  addButton(Button::ExitB, "ExitB", captions::ExitB);
  form.window->resize(form.window->minimumSizeHint());
}

// Qt's own icons by the kind of a file would open each one that is listed, to guess its kind.
class PlainIcons : public QFileIconProvider {
 public:
  QIcon icon(const QFileInfo& info) const override { return QFileIconProvider::icon(info.isDir() ? Folder : File); }
  QString type(const QFileInfo& info) const override { return info.isDir() ? "Folder" : "File"; }
};

// Qt's own dialog: the desktop's drops the name that the field begins with.
class FileDialog : public QFileDialog {
 public:
  FileDialog(AcceptMode mode, std::string_view directory, std::string_view fileName) : QFileDialog(form.window) {
    setOption(DontUseNativeDialog);
    static PlainIcons icons;  // outlives the thread that lists the files
    setIconProvider(&icons);
    setAcceptMode(mode);
    setFileMode(AnyFile);
    findChild<QWidget*>("fileTypeLabel")->hide();  // the pattern stands in the name field
    findChild<QWidget*>("fileTypeCombo")->hide();
    Begin(ToQt(directory), ToQt(fileName));
  }

  QString chosen;  // the path in full

 protected:
  // Any name is taken as it is, but a folder is gone to, and a pattern in the open dialog lists the names that match.
  void accept() override {
    const QFileInfo typed(directory(), NameField().text());
    const QFileInfo pattern(directory(), NameField().text().replace('\\', '/'));
    if (NameField().text().isEmpty()) return;
    if (typed.isDir()) return Begin(typed.canonicalFilePath(), begunWith);
    if (acceptMode() == AcceptOpen && !typed.exists() && pattern.fileName().contains(QRegularExpression("[*?]"))) {
      return Begin(pattern.path(), pattern.fileName());
    }
    chosen = typed.absoluteFilePath();
    QDialog::accept();  // QFileDialog's own would refuse the name. NOLINT(bugprone-parent-virtual-call)
  }

 private:
  QLineEdit& NameField() { return *findChild<QLineEdit*>("fileNameEdit"); }
  void Begin(const QString& directory, const QString& fileName) {
    begunWith = fileName;
    setDirectory(directory);
    if (acceptMode() == AcceptOpen) setNameFilter(fileName);
    NameField().setText(fileName);
    NameField().selectAll();
  }

  QString begunWith;  // the name or the pattern that the field showed before the user's
};

std::string Ask(QFileDialog::AcceptMode mode, std::string_view directory, std::string_view fileName) {
  FileDialog dialog(mode, directory, fileName);
  return dialog.exec() == QDialog::Accepted ? dialog.chosen.toStdString() : std::string(fileName);
}

}  // namespace

std::string ShowOpenDialog(std::string_view directory, std::string_view fileName) {
  return Ask(QFileDialog::AcceptOpen, directory, fileName);
}

std::string ShowSaveDialog(std::string_view directory, std::string_view fileName) {
  return Ask(QFileDialog::AcceptSave, directory, fileName);
}

void EnableButton(Button button, bool enabled) {
  ButtonOf(button)->setEnabled(enabled);
}

void SetHintText(std::string_view text) {
  form.hint->setPlainText(ToQt(text));
}

void SetTargetCaption(std::string_view text) {
  form.target->setText(ToQt(text));
  form.target->setAccessibleDescription(ToQt(text));
  const QString breakable = ToQt(text).toHtmlEscaped().replace("/", "/&#8203;");  // a tip breaks its line there
  form.target->setToolTip("<p style='white-space:pre-wrap'>" + breakable + "</p>");
}

void ShowMessage(std::string_view text) {
  QMessageBox box(form.window);
  box.setWindowTitle(ToQt(captions::Label1));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setText(ToQt(text));
  box.exec();
}

void EndProgram(bool failed) {
  std::_Exit(failed ? EXIT_FAILURE : EXIT_SUCCESS);  // at once: nothing is taken down
}

}  // namespace velmoran

namespace {

// Stands in for Qt's messages while it looks for a display: without one it would abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
  if (type != QtFatalMsg) return;
  std::fputs("velmoran: there is no display that the window can use; velmoran-console does without\n", stderr);
  std::_Exit(EXIT_FAILURE);
}

// The program's icon, from raw pixels: to read an image file, Qt would first load its plugins for other formats.
QIcon Icon() {
  constexpr int Size = 64;  // in pixels, as tools/icon makes it
  const QResource pixels(":/velmoran.rgba");
  return QPixmap::fromImage(QImage(pixels.data(), Size, Size, QImage::Format_RGBA8888));
}

}  // namespace

int main(int /*argc*/, char** argv) {
  using namespace velmoran;
  int nameAlone = 1;                     // there is no command line
  qputenv("QT_ENABLE_REGEXP_JIT", "0");  // which would make memory both writable and executable
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  const QApplication application(nameAlone, argv);
  qInstallMessageHandler(usual);
  QApplication::setWindowIcon(Icon());
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");  // Qt's dialog keeps nothing either

  const auto run = std::make_unique<RunState>();
  BuildForm(*run);
  Form_Load(*run);
  form.window->show();
  return QApplication::exec();
}

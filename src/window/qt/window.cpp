// The form as a Qt window. The object name of each control is its name in the form.

#include <QApplication>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFontDatabase>
#include <QFrame>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QResource>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QStyle>
#include <QTextLayout>
#include <QToolTip>
#include <QTreeView>
#include <QVBoxLayout>
#include <QtMath>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "events/captions.h"
#include "events/events.h"
#include "platform/platform.h"

namespace velmoran {

namespace {

constexpr int Margin = 24, BandSpace = 14, LineSpace = 4, LeastSpace = 3;            // in device-independent pixels
constexpr int ButtonColumns = 28, HintColumns = 64, HintLines = 4, ButtonLines = 2;  // in characters of the system font
constexpr int DialogColumns = 110, DialogLines = 32, LeastSection = 14, MostSection = 60;  // in characters too
constexpr int FocusWidth = 2;      // in device-independent pixels
constexpr double TitleSize = 2.2;  // of Label1, times the system font's

// The largest size that a window can have in the screen's work area. Its frame is estimated: the window manager adds it
// later.
QSize LargestSizeOf(const QWidget& window) {
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
  return window.screen()->availableSize() - QSize(2 * border, title + 2 * border);
}

// Shows its text shortened in the middle if the label is too narrow for it; the tool tip and text() have all of it. The
// tip is not kept in toolTip(), which screen readers would read out after the text.
class TargetLabel : public QLabel {
 public:
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter(this).drawText(rect(), Qt::AlignCenter, fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const QString breakable = text().toHtmlEscaped().replace("/", "/&#8203;");  // the tip breaks its lines there
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       "<p style='white-space:pre-wrap'>" + breakable + "</p>", this);
    return true;
  }
};

// Always high enough for its text. Most styles give a text box no focus frame; this one has a frame in the colour of
// text, which can be seen with any style and contrast.
class HintBox : public QPlainTextEdit {
 public:
  HintBox() {
    focusFrame.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    focusFrame.setLineWidth(FocusWidth);
    focusFrame.setAttribute(Qt::WA_TransparentForMouseEvents);
    focusFrame.hide();
  }
  QSize sizeHint() const override { return Characters(HintColumns, HintLines + 1); }  // one line for the frame
  QSize minimumSizeHint() const override { return Characters(ButtonColumns, 1); }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override {
    const double frame = 2 * (frameWidth() + document()->documentMargin());
    QTextLayout text(toPlainText(), font());
    QTextOption option;
    option.setWrapMode(wordWrapMode());
    text.setTextOption(option);
    text.beginLayout();
    double height = frame + 1;  // with one less it would scroll
    for (QTextLine line = text.createLine(); line.isValid(); line = text.createLine()) {
      line.setLineWidth(width - frame);
      height += line.height();
    }
    text.endLayout();
    return qCeil(height);
  }

 protected:
  void focusInEvent(QFocusEvent* event) override {
    QPlainTextEdit::focusInEvent(event);
    focusFrame.show();
  }
  void focusOutEvent(QFocusEvent* event) override {
    QPlainTextEdit::focusOutEvent(event);
    focusFrame.hide();
  }
  void resizeEvent(QResizeEvent* event) override {
    QPlainTextEdit::resizeEvent(event);
    focusFrame.resize(size());
  }

 private:
  QFrame focusFrame{this};
  QSize Characters(int columns, int lines) const {
    return {columns * fontMetrics().averageCharWidth(), lines * fontMetrics().lineSpacing()};
  }
};

// Space above or below a rule, or at the form's edge. It shrinks before the form scrolls.
class Space : public QSpacerItem {
 public:
  explicit Space(int most) : QSpacerItem(0, most, QSizePolicy::Minimum, QSizePolicy::Maximum) {}
  QSize minimumSize() const override { return {0, LeastSpace}; }
};

// All the controls. The form scrolls when it is lower than their least height.
class Bands : public QWidget {
 public:
  int heightForWidth(int width) const override { return layout()->totalMinimumHeightForWidth(width); }
};

class MissionForm : public QScrollArea {
 public:
  explicit MissionForm(const RunState& state) : run(state) {}

  // The size that its controls prefer, within the work area.
  QSize sizeHint() const override { return widget()->layout()->sizeHint().boundedTo(LargestSizeOf(*this)); }

  // Scrolls until all of the control can be seen. QScrollArea's own would be content with a text box's cursor.
  void ScrollTo(const QWidget& control) {
    const QPoint centre = control.mapTo(widget(), control.rect().center());
    ensureVisible(centre.x(), centre.y(), control.width() / 2 + LeastSpace, control.height() / 2 + LeastSpace);
  }

 protected:
  void closeEvent(QCloseEvent* /*event*/) override { ExitB_Click(run); }

 private:
  const RunState& run;
};

// What the functions of platform.h work on.
struct Form {
  MissionForm* window;
  std::array<QPushButton*, 5> buttons;  // by Button
  TargetLabel* target;
  HintBox* hint;
};
Form form;

QPushButton*& ButtonOf(Button button) {
  return form.buttons[static_cast<std::size_t>(button)];
}

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Calls a button's event. If that disables the button, the next control that can have the focus gets it.
void Do(RunState& run, Button button) noexcept {
  Press(run, button);
  QWidget* focus = ButtonOf(button);
  while (!focus->isEnabled() || (focus->focusPolicy() & Qt::TabFocus) == 0) focus = focus->nextInFocusChain();
  focus->setFocus();
}

// Builds the form: bands of controls from top to bottom, separated by rules. The order of the calls is the tab order.
void BuildForm(RunState& run) {
  form.window = new MissionForm(run);
  form.window->setObjectName("Mission");
  form.window->setWindowTitle(ToQt(captions::Mission));
  form.window->setFrameShape(QFrame::NoFrame);
  form.window->setFocusPolicy(Qt::NoFocus);
  form.window->setWidgetResizable(true);
  const int column = form.window->fontMetrics().averageCharWidth(), line = form.window->fontMetrics().lineSpacing();

  auto* content = new Bands;
  auto* bands = new QVBoxLayout(content);
  bands->setContentsMargins(Margin, 0, Margin, 0);
  bands->setSpacing(0);
  bands->addSpacerItem(new Space(Margin));
  QVBoxLayout* band = nullptr;
  int rules = 0;
  const auto beginBand = [&](int stretch = 0) {
    if (band != nullptr) {
      auto* rule = new QFrame;
      rule->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
      rule->setObjectName("Line" + QString::number(++rules));
      bands->addSpacerItem(new Space(BandSpace));
      bands->addWidget(rule);
      bands->addSpacerItem(new Space(BandSpace));
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
  large.setFamily("MS Sans Serif");  // or the system's substitute for it
  const bool isBitmap = !QFontDatabase::isSmoothlyScalable(QFontInfo(large).family());
  if (isBitmap) large.setFamily(title->font().family());
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
  form.hint = new HintBox;
  form.hint->setObjectName("HintT");
  form.hint->setAccessibleName("Hint");
  form.hint->setReadOnly(true);
  form.hint->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  band->addWidget(form.hint);

  beginBand();
  addButton(Button::ExitB, "ExitB", captions::ExitB);
  bands->addSpacerItem(new Space(Margin));
  form.window->setWidget(content);
  QObject::connect(qApp, &QApplication::focusChanged, form.window, [](QWidget* /*before*/, QWidget* focus) {
    const bool pressed = QApplication::mouseButtons() != Qt::NoButton;  // then scrolling would move the button away
    if (!pressed && form.window->isAncestorOf(focus)) form.window->ScrollTo(*focus);
  });
  form.window->resize(form.window->sizeHint());
}

// Gives files one icon and no type: to find these, Qt would open each file that is listed.
class PlainIcons : public QFileIconProvider {
 public:
  QIcon icon(const QFileInfo& info) const override { return QFileIconProvider::icon(info.isDir() ? Folder : File); }
  QString type(const QFileInfo& info) const override { return info.isDir() ? "Folder" : "File"; }
};

// Qt's own dialog: the desktop's doesn't show the given file name.
class FileDialog : public QFileDialog {
 public:
  FileDialog(AcceptMode mode, std::string_view directory, std::string_view fileName) : QFileDialog(form.window) {
    setOption(DontUseNativeDialog);
    static PlainIcons icons;  // outlives the thread that lists the files
    setIconProvider(&icons);
    setAcceptMode(mode);
    setFileMode(AnyFile);
    findChild<QWidget*>("fileTypeLabel")->hide();  // the name field shows the pattern
    findChild<QWidget*>("fileTypeCombo")->hide();
    // Completions may pop up only after the dialog has gone to another folder, and would take the next keys.
    NameField().setCompleter(nullptr);
    const int column = fontMetrics().averageCharWidth(), line = fontMetrics().lineSpacing();
    auto& files = *findChild<QTreeView*>("treeView");
    files.hideColumn(TypeColumn);  // which the icons show too
    files.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    files.header()->setMinimumSectionSize(LeastSection * column);
    files.header()->setMaximumSectionSize(MostSection * column);
    resize(QSize(DialogColumns * column, DialogLines * line).boundedTo(LargestSizeOf(*this)));
    ShowFolder(ToQt(directory), ToQt(fileName));
  }

  QString chosen;  // the path in full

 protected:
  // Accepts any name, but goes to a folder, and for a pattern in the open dialog lists the names that match.
  void accept() override {
    const QFileInfo typed(directory(), NameField().text());
    const QFileInfo pattern(directory(), NameField().text().replace('\\', '/'));
    if (NameField().text().isEmpty()) return;
    if (typed.isDir()) return ShowFolder(typed.canonicalFilePath(), initialName);
    if (acceptMode() == AcceptOpen && !typed.exists() && pattern.fileName().contains(QRegularExpression("[*?]"))) {
      return ShowFolder(pattern.path(), pattern.fileName());
    }
    chosen = typed.absoluteFilePath();
    QDialog::accept();  // QFileDialog's own would refuse the name. NOLINT(bugprone-parent-virtual-call)
  }

 private:
  static constexpr int TypeColumn = 2;  // of QFileSystemModel

  QLineEdit& NameField() { return *findChild<QLineEdit*>("fileNameEdit"); }
  void ShowFolder(const QString& directory, const QString& fileName) {
    initialName = fileName;
    setDirectory(directory);
    if (acceptMode() == AcceptOpen) setNameFilter(fileName);
    NameField().setText(fileName);
    NameField().selectAll();
  }

  QString initialName;  // what the field showed before the user typed
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
  form.hint->setPlainText(ToQt(text));  // Qt itself notifies screen readers
  form.hint->updateGeometry();
}

void SetTargetCaption(std::string_view text) {
  form.target->setText(ToQt(text));
}

void ShowMessage(std::string_view text) {
  QMessageBox box(form.window->isVisible() ? form.window : nullptr);  // centred on it, or on the screen
  box.setWindowTitle(ToQt(captions::Label1));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setText(ToQt(text));
  box.exec();
}

void EndProgram(bool failed) {
  std::_Exit(failed ? EXIT_FAILURE : EXIT_SUCCESS);  // at once: no destructor runs
}

}  // namespace velmoran

namespace {

// Qt's message handler while it looks for a display: without one, Qt itself would abort.
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
  int argumentCount = 1;                 // the program's name: there are no options
  qputenv("QT_ENABLE_REGEXP_JIT", "0");  // the JIT would make memory both writable and executable
  const QtMessageHandler defaultHandler = qInstallMessageHandler(EndWithoutDisplay);
  const QApplication application(argumentCount, argv);
  qInstallMessageHandler(defaultHandler);
  QApplication::setWindowIcon(Icon());
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");  // Qt's dialog stores no settings

  const auto run = std::make_unique<RunState>();
  BuildForm(*run);
  Form_Load(*run);
  form.window->show();
  return QApplication::exec();
}

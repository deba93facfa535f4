// Ends a Qt program once it has painted a window for the first time. Loaded into the program with LD_PRELOAD.
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <cstdlib>

namespace {

class FirstPaint : public QObject {
 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    // After this event: the window's controls are painted along with it, and then shown together.
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, [] { std::_Exit(EXIT_SUCCESS); });
    return false;
  }
};

void AwaitFirstPaint() {
  static FirstPaint filter;
  QCoreApplication::instance()->installEventFilter(&filter);
}
Q_COREAPP_STARTUP_FUNCTION(AwaitFirstPaint)

}  // namespace

// A bare window with a menu and a text box, the measure for the start of the desktop program.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  window.setWindowTitle(QStringLiteral("KORVA: bare"));
  window.menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("E&xit"));
  window.setCentralWidget(new QPlainTextEdit(&window));
  window.resize(760, 520);
  window.show();
  return QApplication::exec();
}

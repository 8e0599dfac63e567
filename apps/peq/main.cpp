// peq: the desktop program.
#include <QApplication>
#include <QStandardPaths>

#include "ui/mainwindow.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QCoreApplication::setOrganizationName(QStringLiteral("PEQ"));
  QCoreApplication::setApplicationName(QStringLiteral("PEQ"));
  // Files the program keeps go beside it, or to the user's data directory when that cannot be
  // written (an installed copy).
  const QString progDir = QCoreApplication::applicationDirPath();
  const QString dataDir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  pequi::MainWindow w(progDir, dataDir);
  w.show();
  w.Start();
  return app.exec();
}

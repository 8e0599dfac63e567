#include "ui/textwindows.h"

#include <QFontDatabase>
#include <QUrl>

#include "windows/shell.h"

namespace pequi {

TextWindow::TextWindow(const QString& text, QWidget* parent) : QPlainTextEdit(parent) {
  setObjectName(QStringLiteral("frmUnifInkr"));
  setReadOnly(true);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setPlainText(text);
}

HelpWindow::HelpWindow(QWidget* parent) : QTextBrowser(parent) {
  setObjectName(QStringLiteral("frmHelp"));
  setOpenExternalLinks(false);
  connect(this, &QTextBrowser::sourceChanged, this, [this] { emit TitleChanged(Title()); });
}

void HelpWindow::Open(const QString& file) { setSource(QUrl::fromLocalFile(file)); }

QString HelpWindow::Title() const {
  const QString t = documentTitle();
  const QString caption = QString::fromLatin1(peq::kHelpCaption);
  return t.isEmpty() ? caption : caption + QStringLiteral(" - ") + t;
}

}  // namespace pequi

// Read-only text windows of the MDI area: the group table (frmUnifInkr) and the help pages.
#pragma once

#include <QTextBrowser>
#include <QPlainTextEdit>

namespace pequi {

class TextWindow : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit TextWindow(const QString& text, QWidget* parent = nullptr);
};

// The help window: a bundled HTML page by topic number; the links between pages work.
class HelpWindow : public QTextBrowser {
  Q_OBJECT
 public:
  explicit HelpWindow(QWidget* parent = nullptr);
  void Open(const QString& file);
  QString Title() const;

 signals:
  void TitleChanged(const QString& title);
};

}  // namespace pequi

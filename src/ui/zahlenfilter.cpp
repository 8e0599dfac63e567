#include "ui/zahlenfilter.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "substances/synonym.h"

namespace pequi {

void ZahlenFilter::Install(QLineEdit* box) { box->installEventFilter(new ZahlenFilter(box)); }

bool ZahlenFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  // Shortcuts (copy, paste, select all) and keys without text (arrows, Home, End) pass.
  if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  const QString text = key->text();
  if (text.isEmpty()) return false;
  int code = text.at(0).unicode();
  if (code > 127) return true;
  // Tab, Escape and the other control keys keep their meaning for the window.
  if (code < 32) return false;
  const int typed = code;
  if (!peq::IstZahlenTaste(code)) return true;
  if (code != typed) {
    if (auto* box = qobject_cast<QLineEdit*>(watched)) box->insert(QString(QChar(code)));
    return true;
  }
  return false;
}

}  // namespace pequi

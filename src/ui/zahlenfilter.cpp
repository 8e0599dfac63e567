#include "ui/zahlenfilter.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "substances/synonym.h"
#include "windows/calcinput.h"

namespace pequi {

void ZahlenFilter::Install(QLineEdit* box) { box->installEventFilter(new ZahlenFilter(box)); }

void ZahlenFilter::InstallMenge(QLineEdit* box) { box->installEventFilter(new ZahlenFilter(box, true)); }

// The key as the character code MengenTaste judges: Ctrl with a letter is its control code
// (Ctrl+C 3, Ctrl+V 22), Enter 13, Backspace 8, a
// typed character its code; Alt combinations do not reach the box. Keys that type nothing (Tab,
// Escape, arrows, Home, End, Delete) keep their meaning for the box and the window.
bool ZahlenFilter::MengeFilter(QObject* watched, const QKeyEvent* key) {
  const Qt::KeyboardModifiers mods = key->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
  int code = -1;
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: code = 13; break;
    case Qt::Key_Backspace: code = 8; break;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Delete: return mods & (Qt::ControlModifier | Qt::AltModifier);
    default: break;
  }
  if (code < 0) {
    if (mods & Qt::AltModifier) return true;
    if (mods & Qt::ControlModifier) {
      if (key->key() < Qt::Key_A || key->key() > Qt::Key_Z) return true;
      code = key->key() - Qt::Key_A + 1;
    } else {
      const QString text = key->text();
      if (text.isEmpty()) return false;
      code = text.at(0).unicode();
      if (code > 127) return true;
    }
  } else if (mods & (Qt::ControlModifier | Qt::AltModifier)) {
    return true;
  }
  const int typed = code;
  if (!peq::MengenTaste(code)) return true;
  if (code != typed) {
    if (auto* box = qobject_cast<QLineEdit*>(watched)) box->insert(QString(QChar(code)));
    return true;
  }
  return false;
}

bool ZahlenFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  if (menge_) return MengeFilter(watched, key);
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

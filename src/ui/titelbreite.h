// A dialog wide enough for its title: title bars cut a long title short ("File c...ional)"),
// so the dialog asks for the width of the title text plus room for the frame's buttons.
#pragma once

#include <QFontMetrics>
#include <QWidget>

namespace pequi {

inline void TitelPlatz(QWidget* w) {
  const QFontMetrics fm(w->font());
  // Title bars often use a bolder, larger font than the dialog: a fifth more, plus the buttons.
  const int breite = fm.horizontalAdvance(w->windowTitle()) * 6 / 5 + 140;
  if (w->minimumWidth() < breite) w->setMinimumWidth(breite);
}

}  // namespace pequi

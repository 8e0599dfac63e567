// A push button of a window, named so that tests and the key walk find it.
#pragma once

#include <QPushButton>
#include <QString>

#include "ui/qtconvert.h"

namespace pequi {

// A button that does not become the default on focus (the windows choose their default).
inline QPushButton* Knopf(const QString& text, const QString& name, QWidget* parent) {
  auto* b = new QPushButton(text, parent);
  b->setObjectName(name);
  b->setAutoDefault(false);
  return b;
}

// A button with the caption and optional tip of the window's state.
inline QPushButton* Knopf(QWidget* parent, const char* name, const char* caption, const char* tip = nullptr) {
  auto* b = new QPushButton(Q(caption), parent);
  b->setObjectName(QString::fromLatin1(name));
  if (tip) b->setToolTip(Q(tip));
  return b;
}

}  // namespace pequi

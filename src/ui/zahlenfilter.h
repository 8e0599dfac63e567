// The key filter of every numeric box: keys pass only as IstZahlenTaste lets them, and a comma
// arrives as a point.
#pragma once

#include <QObject>

class QLineEdit;

namespace pequi {

class ZahlenFilter : public QObject {
  Q_OBJECT
 public:
  explicit ZahlenFilter(QObject* parent = nullptr) : QObject(parent) {}
  // Installs one filter on the box (owned by the box).
  static void Install(QLineEdit* box);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace pequi

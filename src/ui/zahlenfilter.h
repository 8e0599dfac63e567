// The key filter of every numeric box: keys pass only as IstZahlenTaste lets them, and a comma
// arrives as a point.
#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;

namespace pequi {

class ZahlenFilter : public QObject {
  Q_OBJECT
 public:
  explicit ZahlenFilter(QObject* parent = nullptr, bool menge = false) : QObject(parent), menge_(menge) {}
  // Installs one filter on the box (owned by the box).
  static void Install(QLineEdit* box);
  // The filter of an amount box: the keys pass only as MengenTaste lets them.
  static void InstallMenge(QLineEdit* box);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MengeFilter(QObject* watched, const QKeyEvent* key);
  bool menge_ = false;
};

}  // namespace pequi

// The curve design of one series of a 2D diagram: line pattern, width, colour and symbol.
#pragma once

#include <QDialog>

#include "diagrams/document.h"

class QComboBox;
class QDoubleSpinBox;
class QPushButton;

namespace pequi {

class CurveDesignDialog : public QDialog {
  Q_OBJECT
 public:
  CurveDesignDialog(const peq::SerienStil& stil, const QString& title, QWidget* parent = nullptr);
  peq::SerienStil Stil() const;

  QComboBox* Muster() const { return muster_; }
  QDoubleSpinBox* Breite() const { return breite_; }
  QComboBox* Farbe() const { return farbe_; }
  QComboBox* Symbol() const { return symbol_; }
  QPushButton* OK() const { return ok_; }

 private:
  void FarbeWaehlen();
  QComboBox* muster_ = nullptr;
  QDoubleSpinBox* breite_ = nullptr;
  QComboBox* farbe_ = nullptr;
  QComboBox* symbol_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace pequi

// The McCabe-Thiele design dialog, frmThieleMcCabe: fields of the three compositions and the
// reflux ratio, the design option, the enthalpy check box, the results. It stays above the
// diagram.
#pragma once

#include <array>

#include "ui/statedialog.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pequi {

class ThieleDialog : public StateDialog {
  Q_OBJECT
 public:
  ThieleDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  QLineEdit* X(int k) const { return txtX_[static_cast<std::size_t>(k)]; }
  QLineEdit* RR() const { return txtRR_; }
  QLineEdit* RRMin() const { return txtRRMin_; }
  QRadioButton* Kont() const { return optKont_; }
  QRadioButton* Ohne() const { return optOhne_; }
  QCheckBox* HLV() const { return chkHLV_; }
  QPushButton* Calc() const { return cmdCalc_; }
  QPushButton* Record() const { return cmdProt_; }
  QLabel* Boeden1() const { return lblBoeden1_; }
  QLabel* Boeden2() const { return lblBoeden2_; }

 protected:
  void Cancel() override;

 private:
  void Lesen();
  std::array<QLineEdit*, 3> txtX_{};
  std::array<QLabel*, 3> lblX_{};
  QLineEdit* txtRR_ = nullptr;
  QLineEdit* txtRRMin_ = nullptr;
  QRadioButton* optKont_ = nullptr;
  QRadioButton* optOhne_ = nullptr;
  QCheckBox* chkHLV_ = nullptr;
  QPushButton* cmdCalc_ = nullptr;
  QPushButton* cmdProt_ = nullptr;
  QLabel* lblBoeden1_ = nullptr;
  QLabel* lblBoeden2_ = nullptr;
  QLabel* lblKopf_ = nullptr;
  QLabel* lblSumpf_ = nullptr;
};

}  // namespace pequi

// The input window of a state calculation, frmCalcInput.
#pragma once

#include <array>
#include <vector>

#include "ui/statedialog.h"
#include "windows/calcinput.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pequi {

class CalcInputDialog : public StateDialog {
  Q_OBJECT
 public:
  CalcInputDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  peq::frmCalcInput& State() { return w_; }
  // optVorgabe(k) for CalcVorgabe k.
  QRadioButton* Vorgabe(int k) const { return optVorgabe_[static_cast<std::size_t>(k)]; }
  QRadioButton* TUnit(int k) const { return optTUnit_[static_cast<std::size_t>(k)]; }
  QRadioButton* InputUnit(int k) const { return optInputUnit_[static_cast<std::size_t>(k)]; }
  QLineEdit* TBox() const { return txtT_; }
  QLineEdit* PBox() const { return txtp_; }
  QLineEdit* EtaBox() const { return txtetaV_; }
  // txtCInput(i), i = 1..NKomp.
  QLineEdit* CInput(int i) const { return txtCInput_[static_cast<std::size_t>(i)]; }
  QLineEdit* SumBox() const { return txtSumN0_; }
  QCheckBox* SumIsVariable() const { return chkSumIsVariable_; }
  QPushButton* Weiter() const { return cmdWeiter_; }

 protected:
  void Cancel() override;

 private:
  peq::frmCalcInput w_;
  std::array<QRadioButton*, 3> optVorgabe_{};
  std::array<QRadioButton*, 2> optTUnit_{};
  std::array<QRadioButton*, 2> optInputUnit_{};
  QGroupBox* fraVorgabe_ = nullptr;
  QLineEdit* txtT_ = nullptr;
  QLineEdit* txtp_ = nullptr;
  QLineEdit* txtetaV_ = nullptr;
  QLabel* lblT_ = nullptr;
  std::vector<QLabel*> lblKomp_;
  std::vector<QLineEdit*> txtCInput_;
  QLineEdit* txtSumN0_ = nullptr;
  QCheckBox* chkSumIsVariable_ = nullptr;
  QPushButton* cmdWeiter_ = nullptr;
  QPushButton* cmdCancel_ = nullptr;
};

}  // namespace pequi

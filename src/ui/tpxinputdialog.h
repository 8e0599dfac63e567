// The input window of the diagrams frmTpxInput: the fixed quantity of a diagram (T, p or x2),
// the options of the pseudo numbers, the real curve over a mixing gap, and its three buttons.
#pragma once

#include <array>

#include "ui/statedialog.h"
#include "windows/tpxinput.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pequi {

class TpxInputDialog : public StateDialog {
  Q_OBJECT
 public:
  TpxInputDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  const peq::frmTpxInput& State() const { return w_; }
  QLineEdit* Input() const { return txtpT_; }
  QLabel* InputLabel() const { return lblpT_; }
  QLabel* Error() const { return lblFehler_; }
  QRadioButton* TUnit(int k) const { return optTUnit_[static_cast<std::size_t>(k)]; }
  QRadioButton* Iso(int k) const { return optIso_[static_cast<std::size_t>(k)]; }
  QCheckBox* Log() const { return optLog_; }
  QCheckBox* RealKurve() const { return chkRealKurve_; }
  QPushButton* OK() const { return cmdOK_; }
  QPushButton* OKAndDraw() const { return cmdOKAndDraw_; }
  QPushButton* Esc() const { return cmdEsc_; }

 protected:
  void Cancel() override;

 private:
  // Runs a button of the state; a closed state closes the dialog.
  void Knopf(bool sofort);
  void Schliessen();

  peq::frmTpxInput w_;
  QLabel* lblpT_ = nullptr;
  QLineEdit* txtpT_ = nullptr;
  QLabel* lblFehler_ = nullptr;
  std::array<QRadioButton*, 2> optTUnit_{};
  std::array<QRadioButton*, 2> optIso_{};
  QCheckBox* optLog_ = nullptr;
  QCheckBox* chkRealKurve_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  QPushButton* cmdOKAndDraw_ = nullptr;
  QPushButton* cmdEsc_ = nullptr;
};

}  // namespace pequi

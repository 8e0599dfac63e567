// The point calculator frmGraphCalc of a 2D diagram: the abscissa box, the results, the tangent
// option and its two intercepts, bound to the window state of src/windows/graphcalc.h.
#pragma once

#include "ui/statedialog.h"
#include "windows/graphcalc.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pequi {

class GraphCalcDialog : public StateDialog {
  Q_OBJECT
 public:
  GraphCalcDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;
  QLineEdit* txtX() const { return txtX_; }
  QPushButton* cmdCalc() const { return cmdCalc_; }
  QCheckBox* chkTangente() const { return chkTangente_; }

 protected:
  void Cancel() override;

 private:
  peq::frmGraphCalc& w_;
  QLabel *lblX_, *lblZ_, *lblY1_, *lblY2_, *lblKonode_, *lblXL2_, *lblP1_, *lblP2_;
  QLineEdit *txtX_, *txtZ_, *txtY1_, *txtY2_, *txtXL_, *txtXV_, *txtXL2_, *txtP1_, *txtP2_;
  QCheckBox* chkTangente_;
  QPushButton* cmdCalc_;
};

}  // namespace pequi

// The result window of a state calculation, frmCalcOut. It calculates as it opens.
#pragma once

#include <array>
#include <map>
#include <string>

#include "ui/statedialog.h"
#include "windows/calcout.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace pequi {

class CalcOutDialog : public StateDialog {
  Q_OBJECT
 public:
  CalcOutDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  peq::frmCalcOut& State() { return w_; }
  QLabel* Heading() const { return lblUeberschrift_; }
  QLabel* Result() const { return lblErgebnis_; }
  QLabel* Note() const { return lblHinweis_; }
  QRadioButton* ResUnit(int k) const { return optResUnit_[static_cast<std::size_t>(k)]; }
  QTableWidget* Values() const { return grdWerte_; }
  QComboBox* P0List() const { return cmbP0_; }
  QComboBox* Sep() const { return cmbSep_; }
  QPushButton* Protokoll() const { return cmdProtokoll_; }
  QPushButton* OpenNew() const { return cmdOpenNew_; }
  QPushButton* Close() const { return cmdClose_; }
  // A result field by its name ("txtT", "txtRhoV", ...).
  QLineEdit* Field(const std::string& name) const;

 protected:
  void Cancel() override;

 private:
  peq::frmCalcOut w_;
  QLabel* lblMethode_ = nullptr;
  QLabel* lblUeberschrift_ = nullptr;
  QLabel* lblErgebnis_ = nullptr;
  QLabel* lblHinweis_ = nullptr;
  QLabel* lblDatei_ = nullptr;
  std::map<std::string, QLineEdit*> felder_;
  std::array<QRadioButton*, 4> optResUnit_{};
  QTableWidget* grdWerte_ = nullptr;
  QComboBox* cmbP0_ = nullptr;
  QComboBox* cmbSep_ = nullptr;
  QPushButton* cmdProtokoll_ = nullptr;
  QPushButton* cmdOpenNew_ = nullptr;
  QPushButton* cmdClose_ = nullptr;
  QPushButton* cmdHelp_ = nullptr;
  QPushButton* cmdHelpProtokoll_ = nullptr;
};

}  // namespace pequi

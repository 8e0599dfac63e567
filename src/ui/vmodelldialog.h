// The model window frmVModell.
#pragma once

#include <vector>

#include "ui/statedialog.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;
class QGridLayout;

namespace pequi {

class VModellDialog : public StateDialog {
  Q_OBJECT
 public:
  VModellDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  QTabWidget* Tabs() const { return tabs_; }
  QComboBox* GEKombi() const { return geKombi_; }
  QComboBox* DampfKombi() const { return dampfKombi_; }
  QComboBox* CEOS() const { return cmbCEOS_; }
  QComboBox* MixRule() const { return cmbMixRule_; }
  QPushButton* ModelsOK() const { return cmdOK_; }
  QPushButton* GEParButton() const { return geParButton_; }

 protected:
  void Cancel() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  peq::frmVModell& w() { return f_.VModell; }

  QTabWidget* tabs_ = nullptr;
  QComboBox* geKombi_ = nullptr;
  QComboBox* dampfKombi_ = nullptr;
  QComboBox* cmbCEOS_ = nullptr;
  QComboBox* cmbMixRule_ = nullptr;
  QComboBox* cmbMixRuleGE_ = nullptr;
  QLabel* lblDampf_ = nullptr;
  QLabel* lblEinheit0_ = nullptr;
  QLabel* lblEinheit1_ = nullptr;
  QPushButton* geParButton_ = nullptr;
  QPushButton* kParButton_ = nullptr;
  QPushButton* cmdEOSGEPar_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  QPushButton* cmdEsc_ = nullptr;
  std::vector<QLabel*> lblKomp_;
  std::vector<QComboBox*> cmbP0_;
};

}  // namespace pequi

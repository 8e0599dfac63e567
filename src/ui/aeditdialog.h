// The substance data editor frmAEdit.
#pragma once

#include <vector>

#include "ui/statedialog.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace pequi {

class AEditDialog : public StateDialog {
  Q_OBJECT
 public:
  AEditDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  QTabWidget* Tabs() const { return tabs_; }
  // The box of a field of AEditFelder().
  QLineEdit* Box(int n) const { return txt_[static_cast<std::size_t>(n)]; }

 protected:
  void Cancel() override;

 private:
  peq::frmAEdit& w() { return f_.AEdit; }
  QWidget* BaueTab(int tab);

  QTabWidget* tabs_ = nullptr;
  std::vector<QLineEdit*> txt_;
  QLabel* lblNurLesen_ = nullptr;
  QLabel* lblKopf_ = nullptr;
  QLabel* lblGleichung_ = nullptr;
  QLabel* lblHinweis_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* up_ = nullptr;
  QPushButton* down_ = nullptr;
  QPushButton* august_ = nullptr;
  QPushButton* writeBank_ = nullptr;
};

}  // namespace pequi

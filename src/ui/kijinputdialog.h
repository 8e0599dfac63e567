// The k(ij) window frmKijInput.
#pragma once

#include <array>

#include "ui/statedialog.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace pequi {

class KijInputDialog : public StateDialog {
  Q_OBJECT
 public:
  KijInputDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;
  QLineEdit* Box(int k) const { return txt_[static_cast<std::size_t>(k)]; }

 protected:
  void Cancel() override;

 private:
  peq::frmKijInput& w() { return f_.KijInput; }
  QLabel* lblKomp1_ = nullptr;
  QLabel* lblKomp2_ = nullptr;
  QLabel* lblAnzahl_ = nullptr;
  std::array<QLineEdit*, 4> txt_{};
  QPushButton* such_ = nullptr;
  QPushButton* vor_ = nullptr;
  QPushButton* rueck_ = nullptr;
  bool validating_ = false;
};

}  // namespace pequi

// The parameter windows frmGEInput and (in kijinputdialog.h) frmKijInput.
#pragma once

#include <array>
#include <vector>

#include "ui/statedialog.h"

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pequi {

class GEInputDialog : public StateDialog {
  Q_OBJECT
 public:
  GEInputDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;
  // The box of row z, field k (nullptr when there is none).
  QLineEdit* Box(int z, int k) const;
  QPushButton* Vor() const { return vor_; }
  QPushButton* OK() const { return ok_; }

 protected:
  void Cancel() override;

 private:
  peq::frmGEInput& w() { return f_.GEInput; }
  void BuildRows();

  QLabel* lblKomp1_ = nullptr;
  QLabel* lblKomp2_ = nullptr;
  QLabel* lblAnzahl_ = nullptr;
  QLabel* lblKopf_ = nullptr;
  QLabel* lblTFunktion_ = nullptr;
  QWidget* rowBox_ = nullptr;
  QGridLayout* rowGrid_ = nullptr;
  std::vector<QLabel*> rowLabels_;
  std::vector<std::vector<QLineEdit*>> edits_;
  std::vector<std::pair<std::string, int>> shape_;  // label and field count of the rows built
  QGroupBox* einheit_ = nullptr;
  std::array<QRadioButton*, 4> optEinheit_{};
  QGroupBox* vg_ = nullptr;
  std::array<QRadioButton*, 2> optVG_{};
  QGroupBox* rq_ = nullptr;
  std::array<QLineEdit*, 2> txtR_{};
  std::array<QLineEdit*, 2> txtQ_{};
  QPushButton* suchKIJ_ = nullptr;
  QPushButton* vor_ = nullptr;
  QPushButton* rueck_ = nullptr;
  QPushButton* ok_ = nullptr;
  bool validating_ = false;
};

}  // namespace pequi

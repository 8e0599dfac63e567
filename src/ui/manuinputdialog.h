// The XY editor frmManuInput: the grid of x-y lines, two input boxes, the delimiter of saved
// files, the manipulation frame and the buttons of the window's commands.
#pragma once

#include <array>

#include "ui/statedialog.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace pequi {

class ManuInputDialog : public StateDialog {
  Q_OBJECT
 public:
  ManuInputDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;
  QTableWidget* Grid() const { return grid_; }
  QPushButton* Button(const char* name) const;

 protected:
  void Cancel() override;

 private:
  void MarkeUebernehmen();
  QTableWidget* grid_ = nullptr;
  QLabel* lblKopf_ = nullptr;
  QLabel* lblZeile_ = nullptr;
  QLineEdit* txtComment_ = nullptr;
  std::array<QLineEdit*, 2> y_{};
  QComboBox* cmbSep_ = nullptr;
  QRadioButton* optPunkte_ = nullptr;
  QRadioButton* optKurve_ = nullptr;
  QRadioButton* optEdit_ = nullptr;
  QRadioButton* optAdd_ = nullptr;
  QGroupBox* fraManipulation_ = nullptr;
  std::array<QRadioButton*, 6> optManip_{};
  QLineEdit* txtW_ = nullptr;
  bool rendering_ = false;
};

}  // namespace pequi

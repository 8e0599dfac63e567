// The window of the experimental T-p-x points, frmTpxEdit: a grid of the points, the edit box,
// the input fields with their units, and the buttons of the window's commands.
#pragma once

#include <array>

#include "ui/statedialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace pequi {

class TpxEditDialog : public StateDialog {
  Q_OBJECT
 public:
  TpxEditDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;
  QTableWidget* Grid() const { return grid_; }
  // A button by its control name ("cmdSave", "cmdClipEinfuegen", ...).
  QPushButton* Button(const char* name) const;

 protected:
  void Cancel() override;

 private:
  void MarkeUebernehmen();
  QTableWidget* grid_ = nullptr;
  QLabel* lblKopf_ = nullptr;
  QLabel* lblZeile_ = nullptr;
  QLabel* lblEdit_ = nullptr;
  std::array<QLabel*, 4> lblY_{};
  std::array<QLineEdit*, 4> y_{};
  QComboBox* cmbT_ = nullptr;
  QComboBox* cmbP_ = nullptr;
  QComboBox* cmbKomp_ = nullptr;
  QRadioButton* optEdit_ = nullptr;
  QRadioButton* optAdd_ = nullptr;
  bool rendering_ = false;
};

}  // namespace pequi

// The record window of the distillation runs, frmDistProtokoll: the delimiter, "Write the
// record", "Close file / Open new file" and the file the rows go to.
#pragma once

#include "ui/statedialog.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace pequi {

class DistProtokollDialog : public StateDialog {
  Q_OBJECT
 public:
  DistProtokollDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

  QComboBox* Sep() const { return cmbSep_; }
  QPushButton* Protokoll() const { return cmdProtokoll_; }
  QPushButton* OpenNew() const { return cmdOpenNew_; }
  QLabel* Rows() const { return lblZeilen_; }

 protected:
  void Cancel() override;

 private:
  QComboBox* cmbSep_ = nullptr;
  QPushButton* cmdProtokoll_ = nullptr;
  QPushButton* cmdOpenNew_ = nullptr;
  QLabel* lblDatei_ = nullptr;
  QLabel* lblZeilen_ = nullptr;
};

}  // namespace pequi

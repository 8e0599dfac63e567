// The file dialog frmCmnDlg with its preview pane; shown modally by the frame's DateiDialog.
#pragma once

#include "ui/statedialog.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace pequi {

class CmnDlgDialog : public StateDialog {
  Q_OBJECT
 public:
  CmnDlgDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;
  QListWidget* Files() const { return files_; }
  QLineEdit* Name() const { return name_; }
  QPushButton* OK() const { return ok_; }

 protected:
  void Cancel() override;

 private:
  peq::frmCmnDlg& w() { return f_.CmnDlg; }
  QComboBox* drives_ = nullptr;
  QLabel* dirLabel_ = nullptr;
  QListWidget* dirs_ = nullptr;
  QListWidget* files_ = nullptr;
  QLineEdit* name_ = nullptr;
  QGroupBox* pane_ = nullptr;
  QLabel* stoffeTitel_ = nullptr;
  QLabel* stoffe_ = nullptr;
  QLabel* info_ = nullptr;
  QLabel* bank_ = nullptr;
  QGroupBox* projekt_ = nullptr;
  QLabel* kommentarTitel_ = nullptr;
  QLineEdit* kommentar_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace pequi

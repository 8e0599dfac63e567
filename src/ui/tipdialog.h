// The tip window frmTip.
#pragma once

#include "ui/statedialog.h"

class QCheckBox;
class QLabel;

namespace pequi {

class TipDialog : public StateDialog {
  Q_OBJECT
 public:
  TipDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

 protected:
  void Cancel() override;

 private:
  QLabel* text_ = nullptr;
  QCheckBox* chk_ = nullptr;
};

}  // namespace pequi

// The options window frmOptions.
#pragma once

#include <array>

#include "ui/statedialog.h"

class QCheckBox;
class QLabel;
class QRadioButton;
class QSlider;

namespace pequi {

class OptionsDialog : public StateDialog {
  Q_OBJECT
 public:
  OptionsDialog(peq::mdiPEQ& f, QWidget* parent);
  void Render() override;

 protected:
  void Cancel() override;

 private:
  peq::frmOptions& w() { return f_.Options; }
  std::array<QRadioButton*, 3> optFuUnit_{};
  std::array<QRadioButton*, 2> optTOut_{};
  std::array<QRadioButton*, 2> optConcUnit_{};
  QSlider* slider_ = nullptr;
  QLabel* sliderValue_ = nullptr;
  QCheckBox* chk3D_ = nullptr;
  QCheckBox* chkSafeguard_ = nullptr;
};

}  // namespace pequi

// The substance window frmStoffwahl.
#pragma once

#include <array>

#include "ui/statedialog.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace pequi {

class StoffwahlDialog : public StateDialog {
  Q_OBJECT
 public:
  StoffwahlDialog(peq::mdiPEQ& f, QWidget* parent);
  ~StoffwahlDialog() override;
  void Render() override;

  QListWidget* StoffListe() const { return stoffListe_; }
  QListWidget* Selected() const { return lstSelected_; }
  QComboBox* NameCombo() const { return nameCombo_; }
  QLineEdit* Text1() const { return text1_; }
  QPushButton* RightOne() const { return cmdRightOne_; }
  QPushButton* GemischOK() const { return cmdOK_; }
  QLabel* Label3(int k) const { return label3_[static_cast<std::size_t>(k)]; }
  // The words of the list's head: No., Formula, Name.
  QLabel* Kopf(int k) const { return kopf_[static_cast<std::size_t>(k)]; }

 protected:
  void Cancel() override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* e) override;
  void showEvent(QShowEvent* e) override;

 private:
  peq::frmStoffwahl& w() { return f_.Stoffwahl; }
  void KopfAusrichten();
  std::array<QLabel*, 3> kopf_{};

  QListWidget* stoffListe_ = nullptr;
  QListWidget* lstSelected_ = nullptr;
  QComboBox* nameCombo_ = nullptr;
  QLineEdit* text1_ = nullptr;
  QLabel* lblCAS_ = nullptr;
  std::array<QLabel*, 10> label3_{};
  QPushButton* cmdRightOne_ = nullptr;
  QPushButton* cmdLeftOne_ = nullptr;
  QPushButton* cmdLeftAll_ = nullptr;
  QPushButton* cmdUp_ = nullptr;
  QPushButton* cmdDown_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  QPushButton* cmdEsc_ = nullptr;
  QPushButton* cmdHilfe_ = nullptr;
};

}  // namespace pequi

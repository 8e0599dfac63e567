#include "ui/optionsdialog.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "windows/options.h"

namespace pequi {

OptionsDialog::OptionsDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmOptions, parent) {
  setObjectName(QStringLiteral("frmOptions"));
  setWindowModality(Qt::ApplicationModal);
  setWindowTitle(Q(peq::kOptionsCaption));
  auto* all = new QVBoxLayout(this);

  auto* fu = new QGroupBox(this);
  auto* fl = new QVBoxLayout(fu);
  for (int k = 0; k < 3; ++k) {
    auto* r = new QRadioButton(Q(peq::kOptFuUnitCaptions[k]), fu);
    r->setObjectName(QStringLiteral("optFuUnit_%1").arg(k));
    fl->addWidget(r);
    optFuUnit_[static_cast<std::size_t>(k)] = r;
    connect(r, &QRadioButton::clicked, this, [this, k] { w().optFuUnit = static_cast<int16_t>(k); });
  }
  auto* tOut = new QGroupBox(this);
  auto* tl = new QHBoxLayout(tOut);
  for (int k = 0; k < 2; ++k) {
    auto* r = new QRadioButton(Q(peq::kOptTOutCaptions[k]), tOut);
    r->setObjectName(QStringLiteral("OptTOut_%1").arg(k));
    tl->addWidget(r);
    optTOut_[static_cast<std::size_t>(k)] = r;
    connect(r, &QRadioButton::clicked, this, [this, k] { w().OptTOut = static_cast<int16_t>(k); });
  }
  auto* conc = new QGroupBox(this);
  auto* cl = new QHBoxLayout(conc);
  for (int k = 0; k < 2; ++k) {
    auto* r = new QRadioButton(Q(peq::kOptConcUnitCaptions[k]), conc);
    r->setObjectName(QStringLiteral("optConcUnit_%1").arg(k));
    cl->addWidget(r);
    optConcUnit_[static_cast<std::size_t>(k)] = r;
    connect(r, &QRadioButton::clicked, this, [this, k] { w().optConcUnit = static_cast<int16_t>(k); });
  }
  auto* pts = new QGroupBox(Q(peq::kSliderCaption), this);
  auto* pl = new QHBoxLayout(pts);
  slider_ = new QSlider(Qt::Horizontal, pts);
  slider_->setObjectName(QStringLiteral("Slider1_Punktdichte"));
  slider_->setRange(peq::kPunkteMin, peq::kPunkteMax);
  slider_->setSingleStep(peq::kPunkteSmallStep);
  slider_->setPageStep(peq::kPunkteLargeStep);
  slider_->setTickInterval(peq::kPunkteTick);
  slider_->setTickPosition(QSlider::TicksBelow);
  sliderValue_ = new QLabel(pts);
  sliderValue_->setMinimumWidth(40);
  pl->addWidget(slider_, 1);
  pl->addWidget(sliderValue_);
  connect(slider_, &QSlider::valueChanged, this, [this](int v) {
    w().Slider1_Punktdichte = peq::frmOptions::SliderWert(v);
    sliderValue_->setText(QString::number(v));
  });
  chk3D_ = new QCheckBox(Q(peq::kChk3DKonnodenCaption), this);
  chk3D_->setObjectName(QStringLiteral("chk3DKonnoden"));
  connect(chk3D_, &QCheckBox::toggled, this, [this](bool on) { w().chk3DKonnoden = on; });
  chkSafeguard_ = new QCheckBox(Q(peq::kChkSafeguardCaption), this);
  chkSafeguard_->setObjectName(QStringLiteral("chkSafeguard"));
  connect(chkSafeguard_, &QCheckBox::toggled, this, [this](bool on) { w().chkSafeguard = on; });

  auto* ok = new QPushButton(Mnemonic(peq::kOptionsOK), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  auto* cancel = new QPushButton(Mnemonic(peq::kOptionsCancel), this);
  cancel->setObjectName(QStringLiteral("cmdClose"));
  ok->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  all->addWidget(fu);
  all->addWidget(tOut);
  all->addWidget(conc);
  all->addWidget(pts);
  all->addWidget(chk3D_);
  all->addWidget(chkSafeguard_);
  all->addLayout(buttons);
  connect(ok, &QPushButton::clicked, this, [this] { Do([&] { w().cmdOK(f_); }); });
  connect(cancel, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });
  Render();
}

void OptionsDialog::Render() {
  const peq::frmOptions& o = f_.Options;
  for (int k = 0; k < 3; ++k) optFuUnit_[static_cast<std::size_t>(k)]->setChecked(o.optFuUnit == k);
  for (int k = 0; k < 2; ++k) optTOut_[static_cast<std::size_t>(k)]->setChecked(o.OptTOut == k);
  for (int k = 0; k < 2; ++k) optConcUnit_[static_cast<std::size_t>(k)]->setChecked(o.optConcUnit == k);
  {
    const QSignalBlocker b(slider_);
    slider_->setValue(o.Slider1_Punktdichte);
  }
  sliderValue_->setText(QString::number(o.Slider1_Punktdichte));
  const QSignalBlocker c(chk3D_);
  chk3D_->setChecked(o.chk3DKonnoden);
  const QSignalBlocker d(chkSafeguard_);
  chkSafeguard_->setChecked(o.chkSafeguard);
}

void OptionsDialog::Cancel() { w().cmdClose(f_); }

}  // namespace pequi

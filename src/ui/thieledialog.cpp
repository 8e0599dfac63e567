#include "ui/thieledialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"
#include "windows/thielemccabe.h"

namespace pequi {

ThieleDialog::ThieleDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmThieleMcCabe, parent) {
  setObjectName(QStringLiteral("frmThieleMcCabe"));
  setWindowTitle(Q(peq::kThieleCaption));
  setWindowFlag(Qt::WindowStaysOnTopHint, f.Thiele.Topmost);
  setModal(false);
  auto* grid = new QGridLayout;
  for (int k = 0; k < 3; ++k) {
    lblX_[static_cast<std::size_t>(k)] = new QLabel(this);
    txtX_[static_cast<std::size_t>(k)] = new QLineEdit(this);
    txtX_[static_cast<std::size_t>(k)]->setObjectName(QStringLiteral("txtX%1").arg(k));
    ZahlenFilter::Install(txtX_[static_cast<std::size_t>(k)]);
    grid->addWidget(lblX_[static_cast<std::size_t>(k)], k, 0);
    grid->addWidget(txtX_[static_cast<std::size_t>(k)], k, 1);
  }
  txtRR_ = new QLineEdit(this);
  txtRR_->setObjectName(QStringLiteral("txtRR"));
  ZahlenFilter::Install(txtRR_);
  txtRRMin_ = new QLineEdit(this);
  txtRRMin_->setObjectName(QStringLiteral("txtRRMin"));
  txtRRMin_->setReadOnly(true);
  grid->addWidget(new QLabel(QStringLiteral("RR"), this), 3, 0);
  grid->addWidget(txtRR_, 3, 1);
  grid->addWidget(new QLabel(QStringLiteral("RR(min)"), this), 4, 0);
  grid->addWidget(txtRRMin_, 4, 1);
  optKont_ = new QRadioButton(Q(peq::kThieleKontCaption), this);
  optKont_->setObjectName(QStringLiteral("OptKontDest"));
  optOhne_ = new QRadioButton(Q(peq::kThieleOhneCaption), this);
  chkHLV_ = new QCheckBox(Q(peq::kThieleHLVCaption), this);
  chkHLV_->setObjectName(QStringLiteral("chkHLV"));
  lblBoeden1_ = new QLabel(this);
  lblBoeden1_->setObjectName(QStringLiteral("lblBoeden1"));
  lblBoeden2_ = new QLabel(this);
  lblBoeden2_->setObjectName(QStringLiteral("lblBoeden2"));
  lblKopf_ = new QLabel(this);
  lblSumpf_ = new QLabel(this);
  cmdCalc_ = new QPushButton(Mnemonic(peq::kThieleCalcCaption), this);
  cmdCalc_->setObjectName(QStringLiteral("cmdCalc"));
  cmdCalc_->setDefault(true);
  cmdProt_ = new QPushButton(Mnemonic(peq::kThieleProtCaption), this);
  cmdProt_->setObjectName(QStringLiteral("cmdProtokoll"));
  auto* close = new QPushButton(Mnemonic(peq::kThieleCloseCaption), this);
  close->setObjectName(QStringLiteral("cmdClose"));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdCalc_);
  buttons->addWidget(cmdProt_);
  buttons->addStretch();
  buttons->addWidget(close);
  auto* all = new QVBoxLayout(this);
  all->addLayout(grid);
  all->addWidget(optKont_);
  all->addWidget(optOhne_);
  all->addWidget(chkHLV_);
  all->addWidget(lblBoeden1_);
  all->addWidget(lblBoeden2_);
  all->addWidget(lblKopf_);
  all->addWidget(lblSumpf_);
  all->addLayout(buttons);
  connect(cmdCalc_, &QPushButton::clicked, this, [this] {
    Lesen();
    Do([&] { f_.Thiele.cmdCalc_Click(f_); });
  });
  connect(cmdProt_, &QPushButton::clicked, this, [this] { Do([&] { f_.Thiele.cmdProtokoll_Click(f_); }); });
  connect(close, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });
  connect(optKont_, &QRadioButton::toggled, this, [this](bool on) { f_.Thiele.OptKontDest = on; });
  connect(chkHLV_, &QCheckBox::toggled, this, [this](bool on) { f_.Thiele.chkHLV = on; });
  Render();
}

void ThieleDialog::Lesen() {
  peq::frmThieleMcCabe& w = f_.Thiele;
  for (int k = 0; k < 3; ++k) w.txtX[static_cast<std::size_t>(k)] = S(txtX_[static_cast<std::size_t>(k)]->text());
  w.txtRR = S(txtRR_->text());
}

void ThieleDialog::Render() {
  const peq::frmThieleMcCabe& w = f_.Thiele;
  for (int k = 0; k < 3; ++k) {
    const auto i = static_cast<std::size_t>(k);
    lblX_[i]->setText(Q(w.FeldLabel(k)));
    const QSignalBlocker b(txtX_[i]);
    txtX_[i]->setText(Q(w.txtX[i]));
  }
  txtX_[2]->setEnabled(w.OptKontDest);
  txtRR_->setText(Q(w.txtRR));
  txtRRMin_->setText(Q(w.txtRRMin));
  {
    const QSignalBlocker b1(optKont_), b2(optOhne_), b3(chkHLV_);
    optKont_->setChecked(w.OptKontDest);
    optOhne_->setChecked(!w.OptKontDest);
    chkHLV_->setChecked(w.chkHLV);
  }
  lblBoeden1_->setText(Q(w.lblBoeden1));
  lblBoeden2_->setText(Q(w.lblBoeden2));
  lblKopf_->setText(Q(w.lblKopf));
  lblSumpf_->setText(Q(w.lblSumpf));
}

void ThieleDialog::Cancel() { f_.Thiele.cmdClose(f_); }

}  // namespace pequi

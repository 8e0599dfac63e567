#include "ui/tpxinputdialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"

namespace pequi {

TpxInputDialog::TpxInputDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmTpxInput, parent) {
  setObjectName(QStringLiteral("frmTpxInput"));
  setWindowModality(Qt::ApplicationModal);
  w_.Load(f);
  auto* all = new QVBoxLayout(this);

  auto* iso = new QHBoxLayout;
  for (int k = 0; k < 2; ++k) {
    auto* r = new QRadioButton(Q(peq::kOptIsoCaptions[k]), this);
    r->setObjectName(QStringLiteral("OptIso_%1").arg(k));
    iso->addWidget(r);
    optIso_[static_cast<std::size_t>(k)] = r;
    connect(r, &QRadioButton::clicked, this, [this, k] { Do([&] { w_.OptIso_Click(f_, k); }); });
  }
  optLog_ = new QCheckBox(Q(peq::kOptLogCaption), this);
  optLog_->setObjectName(QStringLiteral("OptLog"));
  iso->addWidget(optLog_);
  iso->addStretch();
  connect(optLog_, &QCheckBox::toggled, this, [this](bool on) { w_.OptLog_Click(on); });

  lblpT_ = new QLabel(this);
  lblpT_->setObjectName(QStringLiteral("lblpT"));
  auto* eingabe = new QHBoxLayout;
  txtpT_ = new QLineEdit(this);
  txtpT_->setObjectName(QStringLiteral("txtpT"));
  ZahlenFilter::Install(txtpT_);
  connect(txtpT_, &QLineEdit::textChanged, this, [this](const QString& t) { w_.txtpT = S(t); });
  eingabe->addWidget(txtpT_, 1);
  for (int k = 0; k < 2; ++k) {
    auto* r = new QRadioButton(Q(peq::kOptTUnitCaptions[k]), this);
    r->setObjectName(QStringLiteral("optTUnit_%1").arg(k));
    eingabe->addWidget(r);
    optTUnit_[static_cast<std::size_t>(k)] = r;
    connect(r, &QRadioButton::clicked, this, [this, k] { Do([&] { w_.optTUnit_Click(k); }); });
  }
  lblFehler_ = new QLabel(this);
  lblFehler_->setObjectName(QStringLiteral("lblFehler"));
  lblFehler_->setStyleSheet(QStringLiteral("color: #b00000;"));

  chkRealKurve_ = new QCheckBox(Q(peq::kChkRealKurveCaption), this);
  chkRealKurve_->setObjectName(QStringLiteral("chkRealKurve"));
  connect(chkRealKurve_, &QCheckBox::toggled, this, [this](bool on) { w_.chkRealKurve_Click(on); });

  cmdOK_ = new QPushButton(this);
  cmdOK_->setObjectName(QStringLiteral("cmdOK"));
  cmdOK_->setDefault(true);
  cmdOKAndDraw_ = new QPushButton(Q(peq::kTpxOKAndDrawCaption), this);
  cmdOKAndDraw_->setObjectName(QStringLiteral("cmdOKAndDraw"));
  cmdEsc_ = new QPushButton(Mnemonic(peq::kTpxEscCaption), this);
  cmdEsc_->setObjectName(QStringLiteral("cmdEsc"));
  auto* knoepfe = new QHBoxLayout;
  knoepfe->addStretch();
  knoepfe->addWidget(cmdOK_);
  knoepfe->addWidget(cmdOKAndDraw_);
  knoepfe->addWidget(cmdEsc_);
  connect(cmdOK_, &QPushButton::clicked, this, [this] { Knopf(false); });
  connect(cmdOKAndDraw_, &QPushButton::clicked, this, [this] { Knopf(true); });
  connect(cmdEsc_, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });

  all->addLayout(iso);
  all->addWidget(lblpT_);
  all->addLayout(eingabe);
  all->addWidget(lblFehler_);
  all->addWidget(chkRealKurve_);
  all->addLayout(knoepfe);
  Render();
  txtpT_->selectAll();
  txtpT_->setFocus();
}

void TpxInputDialog::Render() {
  setWindowTitle(Q(w_.Caption));
  lblpT_->setText(Q(w_.lblpT));
  if (S(txtpT_->text()) != w_.txtpT) {
    const QSignalBlocker b(txtpT_);
    txtpT_->setText(Q(w_.txtpT));
  }
  lblFehler_->setText(Q(w_.lblFehler));
  lblFehler_->setVisible(!w_.lblFehler.empty());
  for (int k = 0; k < 2; ++k) {
    QRadioButton* t = optTUnit_[static_cast<std::size_t>(k)];
    t->setChecked(w_.optTUnit == k);
    t->setVisible(w_.optTUnitVisible);
    QRadioButton* i = optIso_[static_cast<std::size_t>(k)];
    i->setChecked(w_.OptIso == k);
    i->setVisible(w_.OptIsoVisible);
  }
  {
    const QSignalBlocker b(optLog_);
    optLog_->setChecked(w_.OptLog);
  }
  optLog_->setVisible(w_.OptLogVisible);
  {
    const QSignalBlocker b(chkRealKurve_);
    chkRealKurve_->setChecked(w_.chkRealKurve);
  }
  chkRealKurve_->setVisible(w_.chkRealKurveVisible);
  cmdOK_->setText(Q(w_.cmdOKCaption));
  cmdOKAndDraw_->setVisible(w_.cmdOKAndDrawVisible);
}

void TpxInputDialog::Knopf(bool sofort) {
  Do([&] {
    if (sofort)
      w_.cmdOKAndDraw_Click(f_);
    else
      w_.cmdOK_Click(f_);
  });
  Schliessen();
}

void TpxInputDialog::Schliessen() {
  if (!w_.Fertig) return;
  QDialog::done(w_.Abbruch ? QDialog::Rejected : QDialog::Accepted);
}

void TpxInputDialog::Cancel() {
  w_.cmdEsc_Click(f_);
  Schliessen();
}

}  // namespace pequi

#include "ui/calcinputdialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
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

namespace {

std::size_t U(int i) { return static_cast<std::size_t>(i); }

// Sets the text of a box only when it differs, so that the cursor of a box being typed in stays.
void SetText(QLineEdit* box, const std::string& text) {
  const QString t = Q(text);
  if (box->text() == t) return;
  const QSignalBlocker b(box);
  box->setText(t);
}

void SetChecked(QRadioButton* r, bool on) {
  const QSignalBlocker b(r);
  r->setChecked(on);
}

QLineEdit* NumberBox(const QString& name, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(name);
  ZahlenFilter::Install(box);
  return box;
}

// A box of an amount (the feed, its sum): digits and the decimal character only.
QLineEdit* AmountBox(const QString& name, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(name);
  ZahlenFilter::InstallMenge(box);
  return box;
}

}  // namespace

CalcInputDialog::CalcInputDialog(peq::mdiPEQ& f, QWidget* parent)
    : StateDialog(f, peq::WindowId::frmCalcInput, parent) {
  setObjectName(QStringLiteral("frmCalcInput"));
  setWindowModality(Qt::ApplicationModal);
  w_.Load(f_);
  const int n = f_.s.NKomp;

  // Which two quantities are given, with T, p and eta(V).
  fraVorgabe_ = new QGroupBox(Q(peq::kVorgabeRahmen), this);
  auto* vg = new QVBoxLayout(fraVorgabe_);
  for (int k : {2, 1, 0}) {
    auto* r = new QRadioButton(Q(peq::kVorgabeCaption[k]), fraVorgabe_);
    r->setObjectName(QStringLiteral("optVorgabe_%1").arg(k));
    optVorgabe_[U(k)] = r;
    vg->addWidget(r);
    connect(r, &QRadioButton::clicked, this, [this, k] { Do([&] { w_.optVorgabe_Click(f_, static_cast<int16_t>(k)); }); });
  }
  auto* werte = new QGroupBox(this);
  auto* wg = new QGridLayout(werte);
  lblT_ = new QLabel(werte);
  txtT_ = NumberBox(QStringLiteral("txtT"), werte);
  txtp_ = NumberBox(QStringLiteral("txtp"), werte);
  txtetaV_ = NumberBox(QStringLiteral("txtetaV"), werte);
  wg->addWidget(lblT_, 0, 0);
  wg->addWidget(txtT_, 0, 1);
  auto* units = new QHBoxLayout;
  for (int k = 0; k < 2; ++k) {
    auto* r = new QRadioButton(Q(peq::kTUnitCaption[k]), werte);
    r->setObjectName(QStringLiteral("optTUnit_%1").arg(k));
    optTUnit_[U(k)] = r;
    units->addWidget(r);
    connect(r, &QRadioButton::clicked, this, [this, k] { Do([&] { w_.optTUnit_Click(f_, static_cast<int16_t>(k)); }); });
  }
  wg->addLayout(units, 0, 2);
  wg->addWidget(new QLabel(Q(peq::kPLabel), werte), 1, 0);
  wg->addWidget(txtp_, 1, 1);
  wg->addWidget(new QLabel(Q(peq::kEtaLabel), werte), 2, 0);
  wg->addWidget(txtetaV_, 2, 1);
  connect(txtT_, &QLineEdit::textEdited, this, [this](const QString& t) { Do([&] { w_.txtT_Change(f_, S(t)); }); });
  connect(txtp_, &QLineEdit::textEdited, this, [this](const QString& t) { Do([&] { w_.txtp_Change(f_, S(t)); }); });
  connect(txtetaV_, &QLineEdit::textEdited, this,
          [this](const QString& t) { Do([&] { w_.txtetaV_Change(f_, S(t)); }); });

  // The feed.
  auto* fraUnit = new QGroupBox(Q(peq::kInputUnitRahmen), this);
  auto* ug = new QVBoxLayout(fraUnit);
  for (int k = 0; k < 2; ++k) {
    auto* r = new QRadioButton(Q(peq::kInputUnitCaption[k]), fraUnit);
    r->setObjectName(QStringLiteral("optInput_Unit_%1").arg(k));
    optInputUnit_[U(k)] = r;
    ug->addWidget(r);
    connect(r, &QRadioButton::clicked, this,
            [this, k] { Do([&] { w_.optInput_Unit_Click(f_, static_cast<int16_t>(k)); }); });
  }
  auto* feed = new QGroupBox(this);
  auto* fg = new QGridLayout(feed);
  lblKomp_.assign(U(n) + 1, nullptr);
  txtCInput_.assign(U(n) + 1, nullptr);
  for (int i = 1; i <= n; ++i) {
    auto* l = new QLabel(feed);
    l->setObjectName(QStringLiteral("lblKomp_%1").arg(i));
    auto* box = AmountBox(QStringLiteral("txtCInput_%1").arg(i), feed);
    fg->addWidget(new QLabel(QStringLiteral("%1.").arg(i), feed), i - 1, 0);
    fg->addWidget(l, i - 1, 1);
    fg->addWidget(box, i - 1, 2);
    lblKomp_[U(i)] = l;
    txtCInput_[U(i)] = box;
    connect(box, &QLineEdit::textEdited, this,
            [this, i](const QString& t) { Do([&] { w_.txtCInput_Change(f_, i, S(t)); }); });
    connect(box, &QLineEdit::returnPressed, this, [this, i] {
      Do([&] { w_.txtCInput_Return(f_, i); });
      const int k = w_.Fokus;
      QLineEdit* next = k >= 1 && k < static_cast<int>(txtCInput_.size()) ? txtCInput_[U(k)] : txtSumN0_;
      next->setFocus();
      next->selectAll();
    });
  }
  txtSumN0_ = AmountBox(QStringLiteral("txtSumN0"), feed);
  fg->addWidget(new QLabel(Q(peq::kSummeLabel), feed), n, 1);
  fg->addWidget(txtSumN0_, n, 2);
  chkSumIsVariable_ = new QCheckBox(Q(peq::kSumIsVariableCaption), feed);
  chkSumIsVariable_->setObjectName(QStringLiteral("chkSumIsVariable"));
  fg->addWidget(chkSumIsVariable_, n + 1, 2);
  fg->setColumnStretch(1, 1);
  connect(txtSumN0_, &QLineEdit::textEdited, this,
          [this](const QString& t) { Do([&] { w_.txtSumN0_Change(f_, S(t)); }); });
  connect(txtSumN0_, &QLineEdit::returnPressed, this, [this] { Do([&] { w_.txtSumN0_Return(f_); }); });
  connect(chkSumIsVariable_, &QCheckBox::clicked, this,
          [this](bool on) { Do([&] { w_.chkSumIsVariable_Click(f_, on); }); });

  cmdWeiter_ = new QPushButton(Q(peq::kWeiterCaption), this);
  cmdWeiter_->setObjectName(QStringLiteral("cmdWeiter"));
  cmdCancel_ = new QPushButton(Mnemonic(peq::kCalcCancelCaption), this);
  cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
  for (QPushButton* b : {cmdWeiter_, cmdCancel_}) {
    b->setAutoDefault(false);
    b->setDefault(false);
  }
  connect(cmdWeiter_, &QPushButton::clicked, this, [this] { Do([&] { w_.cmdWeiter(f_); }); });
  connect(cmdCancel_, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });

  auto* left = new QVBoxLayout;
  left->addWidget(fraVorgabe_);
  left->addWidget(werte);
  left->addStretch();
  auto* right = new QVBoxLayout;
  right->addWidget(fraUnit);
  right->addWidget(feed);
  right->addStretch();
  auto* top = new QHBoxLayout;
  top->addLayout(left);
  top->addLayout(right, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdWeiter_);
  buttons->addWidget(cmdCancel_);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addLayout(buttons);
  resize(640, 360);
  Render();
  if (n >= 1) txtCInput_[1]->setFocus();
}

void CalcInputDialog::Render() {
  const peq::frmCalcInput& m = w_;
  setWindowTitle(Q(m.Caption));
  for (int k = 0; k < 3; ++k) SetChecked(optVorgabe_[U(k)], m.optVorgabe == k);
  fraVorgabe_->setEnabled(m.optVorgabeEnabled);
  for (int k = 0; k < 2; ++k) SetChecked(optTUnit_[U(k)], m.optTUnit == k);
  for (int k = 0; k < 2; ++k) SetChecked(optInputUnit_[U(k)], m.optInput_Unit == k);
  lblT_->setText(Q(std::string(peq::kTLabel) + "/" + peq::kTUnitCaption[m.optTUnit == 0 ? 0 : 1]));
  SetText(txtT_, m.txtT);
  SetText(txtp_, m.txtp);
  SetText(txtetaV_, m.txtetaV);
  txtT_->setEnabled(m.txtTEnabled);
  txtp_->setEnabled(m.txtpEnabled);
  txtetaV_->setEnabled(m.txtetaVEnabled);
  for (std::size_t i = 1; i < txtCInput_.size(); ++i) {
    if (i < m.lblKomp.size()) lblKomp_[i]->setText(Q(m.lblKomp[i]));
    if (i < m.txtCInput.size()) SetText(txtCInput_[i], m.txtCInput[i]);
  }
  SetText(txtSumN0_, m.txtSumN0);
  {
    const QSignalBlocker b(chkSumIsVariable_);
    chkSumIsVariable_->setChecked(m.chkSumIsVariable);
  }
}

void CalcInputDialog::Cancel() { w_.cmdCancel(f_); }

}  // namespace pequi

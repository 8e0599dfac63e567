#include "ui/vmodelldialog.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "windows/vmodell.h"

namespace pequi {

namespace {

void FillCombo(QComboBox* c, const std::vector<std::string>& texts, int index) {
  const QSignalBlocker b(c);
  QStringList want;
  for (const std::string& t : texts) want << Q(t);
  QStringList have;
  for (int k = 0; k < c->count(); ++k) have << c->itemText(k);
  if (want != have) {
    c->clear();
    c->addItems(want);
  }
  c->setCurrentIndex(index);
}

QPushButton* HelpButton(const QString& name, QWidget* parent) {
  auto* b = new QPushButton(QStringLiteral("?"), parent);
  b->setObjectName(name);
  b->setFixedWidth(28);
  b->setAutoDefault(false);
  return b;
}

}  // namespace

VModellDialog::VModellDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmVModell, parent) {
  setObjectName(QStringLiteral("frmVModell"));
  setWindowModality(Qt::ApplicationModal);

  tabs_ = new QTabWidget(this);
  tabs_->setObjectName(QStringLiteral("tabModellKonzept"));

  // Tab 0: gamma-phi.
  auto* tab0 = new QWidget(tabs_);
  auto* f0 = new QFormLayout(tab0);
  f0->addRow(new QLabel(Q(peq::kTabLabels[0]), tab0));
  geKombi_ = new QComboBox(tab0);
  geKombi_->setObjectName(QStringLiteral("GEKombi"));
  geParButton_ = new QPushButton(Q(peq::kGEParButtonCaption), tab0);
  geParButton_->setObjectName(QStringLiteral("GEParButton"));
  geParButton_->setAutoDefault(false);
  auto* geRow = new QHBoxLayout;
  geRow->addWidget(geKombi_, 1);
  geRow->addWidget(geParButton_);
  geRow->addWidget(HelpButton(QStringLiteral("cmdHelpParameter"), tab0));
  f0->addRow(Q(peq::kGEModelLabel), geRow);
  lblEinheit0_ = new QLabel(tab0);
  f0->addRow(QString(), lblEinheit0_);
  dampfKombi_ = new QComboBox(tab0);
  dampfKombi_->setObjectName(QStringLiteral("DampfKombi"));
  for (const char* t : peq::kDampfKombi) dampfKombi_->addItem(Q(t));
  kParButton_ = new QPushButton(tab0);
  kParButton_->setObjectName(QStringLiteral("kParButton"));
  kParButton_->setAutoDefault(false);
  auto* vapRow = new QHBoxLayout;
  vapRow->addWidget(dampfKombi_, 1);
  vapRow->addWidget(kParButton_);
  vapRow->addWidget(HelpButton(QStringLiteral("cmdHelpDampf"), tab0));
  f0->addRow(Q(peq::kVapLabel), vapRow);
  lblDampf_ = new QLabel(tab0);
  f0->addRow(QString(), lblDampf_);
  tabs_->addTab(tab0, Q(peq::kTabCaptions[0]));

  // Tab 1: phi-phi.
  auto* tab1 = new QWidget(tabs_);
  auto* f1 = new QFormLayout(tab1);
  f1->addRow(new QLabel(Q(peq::kTabLabels[1]), tab1));
  cmbCEOS_ = new QComboBox(tab1);
  cmbCEOS_->setObjectName(QStringLiteral("cmbCEOS"));
  for (const char* t : peq::kCEOS) cmbCEOS_->addItem(Q(t));
  f1->addRow(Q(peq::kEOSLabel), cmbCEOS_);
  cmbMixRule_ = new QComboBox(tab1);
  cmbMixRule_->setObjectName(QStringLiteral("cmbMixRule"));
  for (const char* t : peq::kMixRule) cmbMixRule_->addItem(Q(t));
  auto* mixRow = new QHBoxLayout;
  mixRow->addWidget(cmbMixRule_, 1);
  mixRow->addWidget(HelpButton(QStringLiteral("cmdHelpMixRule"), tab1));
  f1->addRow(Q(peq::kMixRuleLabel), mixRow);
  cmbMixRuleGE_ = new QComboBox(tab1);
  cmbMixRuleGE_->setObjectName(QStringLiteral("cmbMixRuleGE"));
  for (const char* t : peq::kMixRuleGE) cmbMixRuleGE_->addItem(Q(t));
  f1->addRow(Q(peq::kMixRuleGELabel), cmbMixRuleGE_);
  cmdEOSGEPar_ = new QPushButton(tab1);
  cmdEOSGEPar_->setObjectName(QStringLiteral("cmdEOS_GEPar"));
  cmdEOSGEPar_->setAutoDefault(false);
  f1->addRow(QString(), cmdEOSGEPar_);
  lblEinheit1_ = new QLabel(tab1);
  f1->addRow(QString(), lblEinheit1_);
  tabs_->addTab(tab1, Q(peq::kTabCaptions[1]));

  // Components with their vapour-pressure equations.
  auto* komp = new QGroupBox(Q(peq::kP0Label), this);
  auto* grid = new QGridLayout(komp);
  const int n = f_.s.NKomp;
  lblKomp_.assign(static_cast<std::size_t>(n) + 1, nullptr);
  cmbP0_.assign(static_cast<std::size_t>(n) + 1, nullptr);
  for (int i = 1; i <= n; ++i) {
    auto* l = new QLabel(komp);
    l->setObjectName(QStringLiteral("lblKomp_%1").arg(i));
    l->setToolTip(Q(peq::kKompNameTip));
    l->setCursor(Qt::PointingHandCursor);
    l->installEventFilter(this);
    auto* c = new QComboBox(komp);
    c->setObjectName(QStringLiteral("cmbP0_%1").arg(i));
    grid->addWidget(new QLabel(QStringLiteral("%1.").arg(i), komp), i, 0);
    grid->addWidget(l, i, 1);
    grid->addWidget(c, i, 2);
    lblKomp_[static_cast<std::size_t>(i)] = l;
    cmbP0_[static_cast<std::size_t>(i)] = c;
    connect(c, qOverload<int>(&QComboBox::activated), this, [this, i](int index) {
      Do([&] { w().cmbP0_Click(f_, i, index); });
    });
  }
  grid->setColumnStretch(1, 1);
  auto* wilson = new QPushButton(Q(peq::kWilsonVolCaption), komp);
  wilson->setObjectName(QStringLiteral("cmdHelpWilson"));
  wilson->setAutoDefault(false);
  grid->addWidget(wilson, n + 1, 2, Qt::AlignRight);

  cmdOK_ = new QPushButton(Q(peq::kOKModellCaption), this);
  cmdOK_->setObjectName(QStringLiteral("cmdOKModell"));
  cmdOK_->setAutoDefault(false);
  cmdOK_->setDefault(true);  // Enter accepts the models
  cmdEsc_ = new QPushButton(Mnemonic(peq::kEscCaption), this);
  cmdEsc_->setObjectName(QStringLiteral("cmdEsc"));
  cmdEsc_->setAutoDefault(false);
  auto* konzeptHelp = HelpButton(QStringLiteral("cmdHelpKonzept"), this);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(konzeptHelp);
  buttons->addStretch();
  buttons->addWidget(cmdOK_);
  buttons->addWidget(cmdEsc_);

  auto* all = new QVBoxLayout(this);
  all->addWidget(tabs_);
  all->addWidget(komp);
  all->addLayout(buttons);
  resize(720, 480);

  connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) { Do([&] { w().tabModellKonzept_Click(f_, tab); }); });
  connect(geKombi_, qOverload<int>(&QComboBox::activated), this, [this](int k) { Do([&] { w().GEKombi_Click(f_, k); }); });
  connect(dampfKombi_, qOverload<int>(&QComboBox::activated), this, [this](int k) { Do([&] { w().DampfKombi_Click(f_, k); }); });
  connect(cmbCEOS_, qOverload<int>(&QComboBox::activated), this, [this](int k) { Do([&] { w().cmbCEOS_Click(f_, k); }); });
  connect(cmbMixRule_, qOverload<int>(&QComboBox::activated), this, [this](int k) { Do([&] { w().cmbMixRule_Click(f_, k); }); });
  connect(cmbMixRuleGE_, qOverload<int>(&QComboBox::activated), this, [this](int k) { Do([&] { w().cmbMixRuleGE_Click(f_, k); }); });
  connect(geParButton_, &QPushButton::clicked, this, [this] { Do([&] { w().GEParButton_Click(f_); }); });
  connect(kParButton_, &QPushButton::clicked, this, [this] { Do([&] { w().kParButton_Click(f_); }); });
  connect(cmdEOSGEPar_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdEOS_GEPar_Click(f_); }); });
  connect(cmdOK_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdOKModell(f_); }); });
  connect(cmdEsc_, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });
  connect(konzeptHelp, &QPushButton::clicked, this, [this] { w().Hilfe(f_, peq::kHelpKonzept); });
  connect(wilson, &QPushButton::clicked, this, [this] { w().Hilfe(f_, peq::kHelpWilson); });
  connect(findChild<QPushButton*>(QStringLiteral("cmdHelpParameter")), &QPushButton::clicked, this,
          [this] { w().Hilfe(f_, peq::kHelpParameter); });
  connect(findChild<QPushButton*>(QStringLiteral("cmdHelpDampf")), &QPushButton::clicked, this,
          [this] { w().Hilfe(f_, peq::kHelpDampf); });
  connect(findChild<QPushButton*>(QStringLiteral("cmdHelpMixRule")), &QPushButton::clicked, this,
          [this] { w().Hilfe(f_, peq::kHelpMixRule); });
  Render();
}

void VModellDialog::Render() {
  const peq::frmVModell& m = f_.VModell;
  setWindowTitle(Q(m.Caption));
  {
    const QSignalBlocker b(tabs_);
    tabs_->setCurrentIndex(m.tabModellKonzept);
  }
  FillCombo(geKombi_, m.GEKombiTexte, m.GEKombiIndex);
  {
    const QSignalBlocker b(dampfKombi_);
    dampfKombi_->setCurrentIndex(m.DampfKombiIndex);
  }
  {
    const QSignalBlocker b(cmbCEOS_);
    cmbCEOS_->setCurrentIndex(m.cmbCEOSIndex);
  }
  {
    const QSignalBlocker b(cmbMixRule_);
    cmbMixRule_->setCurrentIndex(m.cmbMixRuleIndex);
  }
  {
    const QSignalBlocker b(cmbMixRuleGE_);
    cmbMixRuleGE_->setCurrentIndex(m.cmbMixRuleGEIndex);
  }
  cmbMixRuleGE_->setEnabled(m.cmbMixRuleGEEnabled);
  geParButton_->setEnabled(m.GEParButtonEnabled);
  geParButton_->setToolTip(Q(m.GEParButtonTip));
  kParButton_->setVisible(m.kParButtonVisible);
  kParButton_->setText(Q(m.kParButtonCaption));
  lblDampf_->setText(Q(m.lblDampf));
  cmdEOSGEPar_->setText(Q(m.cmdEOS_GEParCaption));
  lblEinheit0_->setText(Q(m.lblEinheit));
  lblEinheit1_->setText(Q(m.lblEinheit));
  for (std::size_t i = 1; i < lblKomp_.size() && i < m.lblKomp.size(); ++i) {
    lblKomp_[i]->setText(Q(m.lblKomp[i]));
    FillCombo(cmbP0_[i], m.cmbP0Texte[i], m.cmbP0Index[i]);
  }
}

void VModellDialog::Cancel() { w().cmdEsc(f_); }

bool VModellDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    for (std::size_t i = 1; i < lblKomp_.size(); ++i)
      if (watched == lblKomp_[i]) {
        Do([&] { w().lblKomp_Click(f_, static_cast<int>(i)); });
        return true;
      }
  }
  return StateDialog::eventFilter(watched, event);
}

}  // namespace pequi

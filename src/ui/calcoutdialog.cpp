#include "ui/calcoutdialog.h"

#include <QComboBox>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include "ui/qtconvert.h"

namespace pequi {

namespace {

std::size_t U(int i) { return static_cast<std::size_t>(i); }

// The result fields: object name and label.
struct FeldDef {
  const char* name;
  const char* label;
};
constexpr FeldDef kFelder[] = {{"txtT", "T/K"},
                               {"txtp", "p/kPa"},
                               {"txtEta", "eta(V)"},
                               {"txtMFeed", "M(feed)/(kg/kmol)"},
                               {"txtML", "M(L)/(kg/kmol)"},
                               {"txtMV", "M(V)/(kg/kmol)"},
                               {"txtRhoL", "rho(L)/(kg/m^3)"},
                               {"txtRhoV", "rho(V)/(kg/m^3)"},
                               {"txtGE", "gE/RT"},
                               {"txtDelMG", "del(M)g/RT"}};

}  // namespace

CalcOutDialog::CalcOutDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmCalcOut, parent) {
  setObjectName(QStringLiteral("frmCalcOut"));
  setWindowModality(Qt::NonModal);
  const int n = f_.s.NKomp;

  lblMethode_ = new QLabel(this);
  lblMethode_->setObjectName(QStringLiteral("lblMethode"));
  lblUeberschrift_ = new QLabel(this);
  lblUeberschrift_->setObjectName(QStringLiteral("lblUeberschrift"));
  QFont bold = lblUeberschrift_->font();
  bold.setBold(true);
  lblUeberschrift_->setFont(bold);
  lblErgebnis_ = new QLabel(this);
  lblErgebnis_->setObjectName(QStringLiteral("lblErgebnis"));
  lblErgebnis_->setFont(bold);
  lblErgebnis_->setStyleSheet(QStringLiteral("color: #b00000"));
  lblHinweis_ = new QLabel(this);
  lblHinweis_->setObjectName(QStringLiteral("lblHinweis"));
  lblHinweis_->setWordWrap(true);

  auto* werte = new QGroupBox(this);
  auto* wg = new QGridLayout(werte);
  int k = 0;
  for (const FeldDef& d : kFelder) {
    auto* box = new QLineEdit(werte);
    box->setObjectName(QString::fromLatin1(d.name));
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignRight);
    felder_[d.name] = box;
    wg->addWidget(new QLabel(QString::fromLatin1(d.label), werte), k % 5, 2 * (k / 5));
    wg->addWidget(box, k % 5, 2 * (k / 5) + 1);
    ++k;
  }

  grdWerte_ = new QTableWidget(n, 3, this);
  grdWerte_->setObjectName(QStringLiteral("grdWerte"));
  grdWerte_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  grdWerte_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);

  auto* fraUnit = new QGroupBox(this);
  auto* ug = new QVBoxLayout(fraUnit);
  for (int u = 0; u < 4; ++u) {
    auto* r = new QRadioButton(Q(peq::kResUnitCaption[u]), fraUnit);
    r->setObjectName(QStringLiteral("optResUnit_%1").arg(u));
    optResUnit_[U(u)] = r;
    ug->addWidget(r);
    connect(r, &QRadioButton::clicked, this, [this, u] { Do([&] { w_.optResUnit_Click(f_, static_cast<int16_t>(u)); }); });
  }
  cmbP0_ = new QComboBox(this);
  cmbP0_->setObjectName(QStringLiteral("cmbP0"));
  ug->addWidget(cmbP0_);
  ug->addStretch();

  auto* fraProt = new QGroupBox(this);
  auto* pg = new QGridLayout(fraProt);
  lblDatei_ = new QLabel(fraProt);
  lblDatei_->setObjectName(QStringLiteral("lblDatei"));
  cmdProtokoll_ = new QPushButton(Q(peq::kProtokollCaption), fraProt);
  cmdProtokoll_->setObjectName(QStringLiteral("cmdProtokoll"));
  cmdOpenNew_ = new QPushButton(Q(peq::kOpenNewCaption), fraProt);
  cmdOpenNew_->setObjectName(QStringLiteral("cmdOpenNew"));
  cmbSep_ = new QComboBox(fraProt);
  cmbSep_->setObjectName(QStringLiteral("cmbSep"));
  for (const char* t : peq::kTrennerTexte) cmbSep_->addItem(Q(t));
  cmdHelpProtokoll_ = new QPushButton(QStringLiteral("?"), fraProt);
  cmdHelpProtokoll_->setObjectName(QStringLiteral("cmdHelpProtokoll"));
  cmdHelpProtokoll_->setFixedWidth(28);
  pg->addWidget(lblDatei_, 0, 0, 1, 3);
  pg->addWidget(cmdProtokoll_, 1, 0);
  pg->addWidget(cmbSep_, 1, 1);
  pg->addWidget(cmdHelpProtokoll_, 1, 2);
  pg->addWidget(cmdOpenNew_, 2, 0, 1, 3);

  cmdClose_ = new QPushButton(Mnemonic(peq::kCloseCaption), this);
  cmdClose_->setObjectName(QStringLiteral("cmdClose"));
  cmdHelp_ = new QPushButton(Mnemonic(peq::kHelpButtonCaption), this);
  cmdHelp_->setObjectName(QStringLiteral("cmdHelp"));
  for (QPushButton* b : {cmdProtokoll_, cmdOpenNew_, cmdClose_, cmdHelp_, cmdHelpProtokoll_}) {
    b->setAutoDefault(false);
    b->setDefault(false);
  }
  cmdClose_->setDefault(true);
  connect(cmdProtokoll_, &QPushButton::clicked, this, [this] { Do([&] { w_.cmdProtokoll(f_); }); });
  connect(cmdOpenNew_, &QPushButton::clicked, this, [this] { Do([&] { w_.cmdOpenNew(f_); }); });
  connect(cmbSep_, qOverload<int>(&QComboBox::activated), this,
          [this](int i) { Do([&] { w_.cmbSep_Click(f_, static_cast<int16_t>(i)); }); });
  connect(cmdClose_, &QPushButton::clicked, this, [this] { Do([&] { w_.cmdClose(f_); }); });
  connect(cmdHelp_, &QPushButton::clicked, this, [this] { w_.cmdHelp(f_); });
  connect(cmdHelpProtokoll_, &QPushButton::clicked, this, [this] { w_.cmdHelpProtokoll(f_); });

  auto* mitte = new QHBoxLayout;
  mitte->addWidget(grdWerte_, 1);
  mitte->addWidget(fraUnit);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdHelp_);
  buttons->addStretch();
  buttons->addWidget(cmdClose_);
  auto* all = new QVBoxLayout(this);
  all->addWidget(lblMethode_);
  all->addWidget(lblUeberschrift_);
  all->addWidget(lblErgebnis_);
  all->addWidget(lblHinweis_);
  all->addWidget(werte);
  all->addLayout(mitte, 1);
  all->addWidget(fraProt);
  all->addLayout(buttons);
  resize(760, 600);

  // The load step: the calculation.
  w_.Load(f_);
  Render();
}

QLineEdit* CalcOutDialog::Field(const std::string& name) const {
  auto it = felder_.find(name);
  return it == felder_.end() ? nullptr : it->second;
}

void CalcOutDialog::Render() {
  const peq::frmCalcOut& m = w_;
  setWindowTitle(Q(m.Caption));
  lblMethode_->setText(Q(m.lblMethode));
  lblUeberschrift_->setText(Q(m.lblUeberschrift));
  lblErgebnis_->setText(m.lblZustand.empty() ? Q(m.lblErgebnis) : Q(m.lblErgebnis + "\n" + m.lblZustand));
  lblErgebnis_->setWordWrap(true);
  lblErgebnis_->setVisible(!m.lblErgebnis.empty());
  lblHinweis_->setText(Q(m.lblHinweis));
  lblHinweis_->setVisible(!m.lblHinweis.empty());
  const std::map<std::string, const std::string*> texte = {
      {"txtT", &m.txtT},       {"txtp", &m.txtp},       {"txtEta", &m.txtEta},   {"txtMFeed", &m.txtMFeed},
      {"txtML", &m.txtML},     {"txtMV", &m.txtMV},     {"txtRhoL", &m.txtRhoL}, {"txtRhoV", &m.txtRhoV},
      {"txtGE", &m.txtGE},     {"txtDelMG", &m.txtDelMG}};
  for (const auto& [name, text] : texte) felder_.at(name)->setText(Q(*text));
  const bool flash = m.Art == 1;
  for (const char* name : {"txtp", "txtEta", "txtML", "txtMV", "txtRhoL", "txtRhoV"}) felder_.at(name)->setEnabled(flash);
  for (const char* name : {"txtGE", "txtDelMG"}) felder_.at(name)->setEnabled(!flash);
  for (int u = 0; u < 4; ++u) {
    const QSignalBlocker b(optResUnit_[U(u)]);
    optResUnit_[U(u)]->setChecked(m.optResUnit == u);
    optResUnit_[U(u)]->setEnabled(flash);
  }
  grdWerte_->setHorizontalHeaderLabels(flash ? QStringList{Q(peq::kSpalteFeed), Q(peq::kSpalteLiquid), Q(peq::kSpalteVapour)}
                                             : QStringList{QStringLiteral("x"), Q(peq::kSpalteGamma), QStringLiteral("p0/kPa")});
  QStringList namen;
  for (std::size_t i = 1; i < m.txtWerte.size(); ++i) {
    namen << Q(m.lblKomp[i]);
    for (int c = 0; c < 3; ++c) {
      auto* item = new QTableWidgetItem(Q(m.txtWerte[i][U(c)]));
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      grdWerte_->setItem(static_cast<int>(i) - 1, c, item);
    }
  }
  grdWerte_->setVerticalHeaderLabels(namen);
  {
    const QSignalBlocker b(cmbP0_);
    cmbP0_->clear();
    for (const std::string& t : m.cmbP0) cmbP0_->addItem(Q(t));
    cmbP0_->setCurrentIndex(0);
  }
  {
    const QSignalBlocker b(cmbSep_);
    cmbSep_->setCurrentIndex(m.cmbSep);
  }
  lblDatei_->setText(Q(m.lblDatei));
  cmdProtokoll_->setEnabled(m.cmdProtokollEnabled);
}

void CalcOutDialog::Cancel() { w_.cmdClose(f_); }

}  // namespace pequi

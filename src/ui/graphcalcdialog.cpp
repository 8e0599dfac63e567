#include "ui/graphcalcdialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <tuple>

#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"

namespace pequi {

namespace {

QLineEdit* Feld(const QString& name, QWidget* parent, bool lesen) {
  auto* b = new QLineEdit(parent);
  b->setObjectName(name);
  b->setReadOnly(lesen);
  return b;
}

void Setze(QLineEdit* b, const std::string& t) {
  const QString q = Q(t);
  if (b->text() == q) return;
  const QSignalBlocker blk(b);
  b->setText(q);
}

}  // namespace

GraphCalcDialog::GraphCalcDialog(peq::mdiPEQ& f, QWidget* parent)
    : StateDialog(f, peq::WindowId::frmGraphCalc, parent), w_(f.GraphCalc) {
  setObjectName(QStringLiteral("frmGraphCalc"));
  auto* g = new QGridLayout(this);
  lblX_ = new QLabel(this);
  txtX_ = Feld(QStringLiteral("txtX"), this, false);
  ZahlenFilter::Install(txtX_);
  cmdCalc_ = new QPushButton(QStringLiteral("Calculate"), this);
  cmdCalc_->setObjectName(QStringLiteral("cmdCalc"));
  cmdCalc_->setDefault(true);
  lblZ_ = new QLabel(this);
  txtZ_ = Feld(QStringLiteral("txtZ"), this, true);
  lblY1_ = new QLabel(this);
  txtY1_ = Feld(QStringLiteral("txtY1"), this, true);
  lblY2_ = new QLabel(this);
  txtY2_ = Feld(QStringLiteral("txtY2"), this, true);
  lblKonode_ = new QLabel(this);
  txtXL_ = Feld(QStringLiteral("txtXL"), this, true);
  txtXV_ = Feld(QStringLiteral("txtXV"), this, true);
  lblXL2_ = new QLabel(this);
  txtXL2_ = Feld(QStringLiteral("txtXL2"), this, true);
  chkTangente_ = new QCheckBox(Q(w_.chkTangenteCaption), this);
  chkTangente_->setObjectName(QStringLiteral("chkTangente"));
  lblP1_ = new QLabel(this);
  txtP1_ = Feld(QStringLiteral("txtPartial1"), this, true);
  lblP2_ = new QLabel(this);
  txtP2_ = Feld(QStringLiteral("txtPartial2"), this, true);
  int r = 0;
  g->addWidget(lblX_, r, 0);
  g->addWidget(txtX_, r, 1);
  g->addWidget(cmdCalc_, r++, 2);
  g->addWidget(lblZ_, r, 0);
  g->addWidget(txtZ_, r++, 1);
  g->addWidget(lblY1_, r, 0);
  g->addWidget(txtY1_, r++, 1);
  g->addWidget(lblY2_, r, 0);
  g->addWidget(txtY2_, r++, 1);
  g->addWidget(lblKonode_, r++, 0, 1, 3);
  g->addWidget(txtXL_, r, 0);
  g->addWidget(txtXV_, r++, 2);
  g->addWidget(lblXL2_, r, 0);
  g->addWidget(txtXL2_, r++, 1);
  g->addWidget(chkTangente_, r++, 0, 1, 3);
  g->addWidget(lblP1_, r, 0);
  g->addWidget(txtP1_, r++, 1);
  g->addWidget(lblP2_, r, 0);
  g->addWidget(txtP2_, r++, 1);
  connect(txtX_, &QLineEdit::textEdited, this, [this](const QString& t) { w_.txtX = S(t); });
  connect(chkTangente_, &QCheckBox::toggled, this, [this](bool on) { w_.chkTangente = on; });
  connect(cmdCalc_, &QPushButton::clicked, this, [this] {
    w_.txtX = S(txtX_->text());
    Do([this] { w_.cmdCalc_Click(f_, f_.Graph2D); });
  });
  Render();
}

void GraphCalcDialog::Render() {
  setWindowTitle(Q(w_.Caption));
  lblX_->setText(Q(w_.lblX));
  Setze(txtX_, w_.txtX);
  for (auto [l, b, text, val] : {std::tuple{lblZ_, txtZ_, &w_.lblZ, &w_.txtZ}, std::tuple{lblY1_, txtY1_, &w_.lblY1, &w_.txtY1},
                                 std::tuple{lblY2_, txtY2_, &w_.lblY2, &w_.txtY2}, std::tuple{lblXL2_, txtXL2_, &w_.lblXL2, &w_.txtXL2},
                                 std::tuple{lblP1_, txtP1_, &w_.lblPartial1, &w_.txtPartial1},
                                 std::tuple{lblP2_, txtP2_, &w_.lblPartial2, &w_.txtPartial2}}) {
    l->setText(Q(*text));
    Setze(b, *val);
    l->setVisible(!text->empty());
    b->setVisible(!text->empty());
  }
  const bool tang = w_.chkTangenteEnabled;
  lblP1_->setVisible(tang);
  txtP1_->setVisible(tang);
  lblP2_->setVisible(tang);
  txtP2_->setVisible(tang);
  lblKonode_->setText(Q(w_.lblKonode));
  lblKonode_->setVisible(!w_.lblKonode.empty());
  txtXL_->setVisible(!w_.lblKonode.empty());
  txtXV_->setVisible(!w_.lblKonode.empty());
  Setze(txtXL_, w_.txtXL);
  Setze(txtXV_, w_.txtXV);
  const QSignalBlocker b(chkTangente_);
  chkTangente_->setEnabled(tang);
  chkTangente_->setChecked(w_.chkTangente);
}

void GraphCalcDialog::Cancel() { f_.Unload(peq::WindowId::frmGraphCalc); }

}  // namespace pequi

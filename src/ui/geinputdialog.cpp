#include "ui/geinputdialog.h"

#include <QButtonGroup>
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
#include "windows/geinput.h"

namespace pequi {

GEInputDialog::GEInputDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmGEInput, parent) {
  setObjectName(QStringLiteral("frmGEInput"));
  setWindowModality(Qt::ApplicationModal);
  lblKomp1_ = new QLabel(this);
  lblKomp2_ = new QLabel(this);
  lblAnzahl_ = new QLabel(this);
  lblKopf_ = new QLabel(this);
  QFont bold = lblKopf_->font();
  bold.setBold(true);
  lblKopf_->setFont(bold);
  lblTFunktion_ = new QLabel(this);
  rowBox_ = new QWidget(this);
  rowGrid_ = new QGridLayout(rowBox_);

  einheit_ = new QGroupBox(this);
  auto* eh = new QHBoxLayout(einheit_);
  for (int k = 0; k < 4; ++k) {
    optEinheit_[static_cast<std::size_t>(k)] = new QRadioButton(Q(peq::kUnitNames[k]), einheit_);
    optEinheit_[static_cast<std::size_t>(k)]->setObjectName(QStringLiteral("opt_parEinheit_%1").arg(k));
    eh->addWidget(optEinheit_[static_cast<std::size_t>(k)]);
    connect(optEinheit_[static_cast<std::size_t>(k)], &QRadioButton::clicked, this, [this, k] {
      Do([&] { w().opt_parEinheit_Click(f_, static_cast<int16_t>(k)); });
    });
  }
  vg_ = new QGroupBox(this);
  auto* vh = new QVBoxLayout(vg_);
  for (int k = 0; k < 2; ++k) {
    optVG_[static_cast<std::size_t>(k)] = new QRadioButton(Q(peq::kOptVGCaptions[k]), vg_);
    optVG_[static_cast<std::size_t>(k)]->setObjectName(QStringLiteral("opt_VG_%1").arg(k));
    vh->addWidget(optVG_[static_cast<std::size_t>(k)]);
    connect(optVG_[static_cast<std::size_t>(k)], &QRadioButton::clicked, this, [this, k] {
      Do([&] { w().opt_VG_Click(f_, k == 0); });
    });
  }
  vh->addWidget(new QLabel(Q(peq::kOptVGNote), vg_));

  rq_ = new QGroupBox(this);
  auto* rg = new QGridLayout(rq_);
  rg->addWidget(new QLabel(Q(peq::kRQStoff[0]), rq_), 0, 1);
  rg->addWidget(new QLabel(Q(peq::kRQStoff[1]), rq_), 0, 2);
  rg->addWidget(new QLabel(Q(peq::kRQLabel[0]), rq_), 1, 0);
  rg->addWidget(new QLabel(Q(peq::kRQLabel[1]), rq_), 2, 0);
  for (int k = 0; k < 2; ++k) {
    for (int rq = 0; rq < 2; ++rq) {
      auto* box = new QLineEdit(rq_);
      box->setObjectName(QStringLiteral("txt%1_%2").arg(rq == 0 ? QStringLiteral("R") : QStringLiteral("Q")).arg(k));
      ZahlenFilter::Install(box);
      rg->addWidget(box, 1 + rq, 1 + k);
      (rq == 0 ? txtR_ : txtQ_)[static_cast<std::size_t>(k)] = box;
      connect(box, &QLineEdit::textEdited, this, [this, rq, k](const QString& t) { w().txtRQ_Change(f_, rq, k, S(t)); });
      connect(box, &QLineEdit::editingFinished, this, [this, rq, k] {
        if (validating_ || !Loaded()) return;
        validating_ = true;
        Do([&] { w().txtRQ_Validate(f_, rq, k); });
        validating_ = false;
      });
    }
  }

  suchKIJ_ = new QPushButton(Q(peq::kSuchKIJCaption), this);
  suchKIJ_->setObjectName(QStringLiteral("cmdSuchKIJ"));
  rueck_ = new QPushButton(Q(peq::kRueckCaption), this);
  rueck_->setObjectName(QStringLiteral("vor_rueck_0"));
  vor_ = new QPushButton(Q(peq::kVorCaption), this);
  vor_->setObjectName(QStringLiteral("vor_rueck_1"));
  ok_ = new QPushButton(Mnemonic(peq::kGEInputOK), this);
  ok_->setObjectName(QStringLiteral("OK_GE"));
  auto* help = new QPushButton(QStringLiteral("?"), this);
  help->setObjectName(QStringLiteral("cmdHilfe"));
  help->setFixedWidth(28);
  for (QPushButton* b : {suchKIJ_, rueck_, vor_, ok_, help}) b->setAutoDefault(false);
  ok_->setDefault(true);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(rueck_);
  buttons->addWidget(vor_);
  buttons->addStretch();
  buttons->addWidget(suchKIJ_);
  buttons->addWidget(help);
  buttons->addWidget(ok_);
  auto* all = new QVBoxLayout(this);
  all->addWidget(lblKomp1_);
  all->addWidget(lblKomp2_);
  all->addWidget(lblAnzahl_);
  all->addWidget(lblKopf_);
  all->addWidget(lblTFunktion_);
  all->addWidget(rowBox_);
  all->addWidget(einheit_);
  all->addWidget(vg_);
  all->addWidget(rq_);
  all->addLayout(buttons);

  connect(rueck_, &QPushButton::clicked, this, [this] { Do([&] { w().vor_rueck(f_, -1); }); });
  connect(vor_, &QPushButton::clicked, this, [this] { Do([&] { w().vor_rueck(f_, +1); }); });
  connect(suchKIJ_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdSuchKIJ(f_); }); });
  connect(ok_, &QPushButton::clicked, this, [this] { Do([&] { w().OK_GE(f_); }); });
  connect(help, &QPushButton::clicked, this, [this] { w().cmdHilfe(f_); });
  Render();
}

void GEInputDialog::BuildRows() {
  rowLabels_.clear();
  edits_.clear();
  while (QLayoutItem* it = rowGrid_->takeAt(0)) {
    if (QWidget* wid = it->widget()) {
      wid->hide();
      wid->deleteLater();
    }
    delete it;
  }
  const auto& zeilen = f_.GEInput.Zeilen;
  shape_.clear();
  bool anyThree = false;
  for (const auto& z : zeilen) anyThree = anyThree || z.felder == 3;
  if (!zeilen.empty()) {
    rowGrid_->addWidget(new QLabel(Q(peq::kSpaltenKopf[0]), rowBox_), 0, 1, Qt::AlignHCenter);
    if (anyThree) {
      rowGrid_->addWidget(new QLabel(Q(peq::kSpaltenKopf[1]), rowBox_), 0, 2, Qt::AlignHCenter);
      rowGrid_->addWidget(new QLabel(Q(peq::kSpaltenKopf[2]), rowBox_), 0, 3, Qt::AlignHCenter);
    }
  }
  for (std::size_t z = 0; z < zeilen.size(); ++z) {
    shape_.emplace_back(zeilen[z].label, zeilen[z].felder);
    auto* l = new QLabel(Q(zeilen[z].label), rowBox_);
    rowGrid_->addWidget(l, static_cast<int>(z) + 1, 0);
    rowLabels_.push_back(l);
    std::vector<QLineEdit*> row;
    for (int k = 0; k < zeilen[z].felder; ++k) {
      auto* box = new QLineEdit(rowBox_);
      box->setObjectName(QStringLiteral("txt_%1_%2").arg(z).arg(k));
      ZahlenFilter::Install(box);
      rowGrid_->addWidget(box, static_cast<int>(z) + 1, k + 1);
      const int zi = static_cast<int>(z);
      connect(box, &QLineEdit::textEdited, this, [this, zi, k](const QString& t) { w().txt_Change(f_, zi, k, S(t)); });
      connect(box, &QLineEdit::editingFinished, this, [this, zi, k] {
        if (validating_ || !Loaded()) return;
        validating_ = true;
        Do([&] { w().txt_Validate(f_, zi, k); });
        validating_ = false;
      });
      row.push_back(box);
    }
    edits_.push_back(row);
  }
}

QLineEdit* GEInputDialog::Box(int z, int k) const {
  if (z < 0 || z >= static_cast<int>(edits_.size())) return nullptr;
  const auto& row = edits_[static_cast<std::size_t>(z)];
  if (k < 0 || k >= static_cast<int>(row.size())) return nullptr;
  return row[static_cast<std::size_t>(k)];
}

void GEInputDialog::Render() {
  const peq::frmGEInput& g = f_.GEInput;
  setWindowTitle(Q(g.Caption));
  lblKomp1_->setText(Q(g.lblKomp1));
  lblKomp2_->setText(Q(g.lblKomp2));
  lblAnzahl_->setText(Q(g.lblAnzahl));
  lblKopf_->setText(Q(g.lblKopf));
  lblTFunktion_->setText(Q(g.lblTFunktion));
  lblTFunktion_->setVisible(!g.lblTFunktion.empty());
  std::vector<std::pair<std::string, int>> shape;
  for (const auto& z : g.Zeilen) shape.emplace_back(z.label, z.felder);
  if (shape != shape_ || edits_.size() != g.Zeilen.size()) BuildRows();
  for (std::size_t z = 0; z < edits_.size(); ++z)
    for (std::size_t k = 0; k < edits_[z].size(); ++k) {
      QLineEdit* box = edits_[z][k];
      const QSignalBlocker b(box);
      const QString t = Q(g.txt[z][k]);
      if (box->text() != t) box->setText(t);
    }
  einheit_->setVisible(g.optEinheitSichtbar);
  for (int k = 0; k < 4; ++k) {
    const QSignalBlocker b(optEinheit_[static_cast<std::size_t>(k)]);
    optEinheit_[static_cast<std::size_t>(k)]->setChecked(g.optEinheit == k);
  }
  vg_->setVisible(g.optVGSichtbar);
  {
    const QSignalBlocker b0(optVG_[0]);
    const QSignalBlocker b1(optVG_[1]);
    optVG_[0]->setChecked(g.WilsonVFix);
    optVG_[1]->setChecked(!g.WilsonVFix);
  }
  rq_->setVisible(g.rqSichtbar);
  for (std::size_t k = 0; k < 2; ++k) {
    const QSignalBlocker br(txtR_[k]);
    const QSignalBlocker bq(txtQ_[k]);
    if (txtR_[k]->text() != Q(g.txtR[k])) txtR_[k]->setText(Q(g.txtR[k]));
    if (txtQ_[k]->text() != Q(g.txtQ[k])) txtQ_[k]->setText(Q(g.txtQ[k]));
  }
  suchKIJ_->setVisible(g.cmdSuchKIJSichtbar);
  const bool stepping = f_.s.NKomp > 2;
  vor_->setEnabled(stepping);
  rueck_->setEnabled(stepping);
}

void GEInputDialog::Cancel() {
  validating_ = true;
  f_.Unload(peq::WindowId::frmGEInput);
}

}  // namespace pequi

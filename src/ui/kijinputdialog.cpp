#include "ui/kijinputdialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "ui/zahlenfilter.h"
#include "windows/geinput.h"
#include "windows/kijinput.h"

namespace pequi {

KijInputDialog::KijInputDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmKijInput, parent) {
  setObjectName(QStringLiteral("frmKijInput"));
  setWindowModality(Qt::ApplicationModal);
  lblKomp1_ = new QLabel(this);
  lblKomp2_ = new QLabel(this);
  lblAnzahl_ = new QLabel(this);
  auto* grid = new QGridLayout;
  for (int k = 0; k < 4; ++k) {
    grid->addWidget(new QLabel(Q(peq::kKijLabels[k]), this), k, 0);
    auto* box = new QLineEdit(this);
    box->setObjectName(QStringLiteral("txt_%1").arg(k));
    ZahlenFilter::Install(box);
    grid->addWidget(box, k, 1);
    txt_[static_cast<std::size_t>(k)] = box;
    connect(box, &QLineEdit::textEdited, this, [this, k](const QString& t) { w().txt_Change(f_, k, S(t)); });
    connect(box, &QLineEdit::editingFinished, this, [this, k] {
      if (validating_ || !Loaded()) return;
      validating_ = true;
      Do([&] { w().txt_Validate(f_, k); });
      validating_ = false;
    });
  }
  such_ = new QPushButton(Q(peq::kSuchkij2Caption), this);
  such_->setObjectName(QStringLiteral("cmdSuchkij_2"));
  rueck_ = new QPushButton(Q(peq::kRueckCaption), this);
  vor_ = new QPushButton(Q(peq::kVorCaption), this);
  auto* ok = new QPushButton(Mnemonic(peq::kGEInputOK), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  for (QPushButton* b : {such_, rueck_, vor_, ok}) b->setAutoDefault(false);
  ok->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(rueck_);
  buttons->addWidget(vor_);
  buttons->addStretch();
  buttons->addWidget(such_);
  buttons->addWidget(ok);
  auto* all = new QVBoxLayout(this);
  all->addWidget(lblKomp1_);
  all->addWidget(lblKomp2_);
  all->addWidget(lblAnzahl_);
  all->addWidget(new QLabel(Q(peq::kKijFunktion), this));
  all->addLayout(grid);
  all->addLayout(buttons);
  connect(rueck_, &QPushButton::clicked, this, [this] { Do([&] { w().vor_rueck(f_, -1); }); });
  connect(vor_, &QPushButton::clicked, this, [this] { Do([&] { w().vor_rueck(f_, +1); }); });
  connect(such_, &QPushButton::clicked, this, [this] { Do([&] { w().cmdSuchkij_2(f_); }); });
  connect(ok, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });
  Render();
}

void KijInputDialog::Render() {
  const peq::frmKijInput& k = f_.KijInput;
  setWindowTitle(Q(k.Caption));
  lblKomp1_->setText(Q(k.lblKomp1));
  lblKomp2_->setText(Q(k.lblKomp2));
  lblAnzahl_->setText(Q(k.lblAnzahl));
  for (std::size_t n = 0; n < 4; ++n) {
    const QSignalBlocker b(txt_[n]);
    if (txt_[n]->text() != Q(k.txt[n])) txt_[n]->setText(Q(k.txt[n]));
  }
  such_->setEnabled(k.cmdSuchkij_2Enabled);
  vor_->setEnabled(f_.s.NKomp > 2);
  rueck_->setEnabled(f_.s.NKomp > 2);
}

void KijInputDialog::Cancel() {
  validating_ = true;
  w().cmdOK(f_);
}

}  // namespace pequi

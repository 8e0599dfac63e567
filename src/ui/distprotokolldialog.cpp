#include "ui/distprotokolldialog.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "windows/distprotokoll.h"

namespace pequi {

DistProtokollDialog::DistProtokollDialog(peq::mdiPEQ& f, QWidget* parent)
    : StateDialog(f, peq::WindowId::frmDistProtokoll, parent) {
  setObjectName(QStringLiteral("frmDistProtokoll"));
  setWindowTitle(Q(peq::kDistProtCaption));
  cmbSep_ = new QComboBox(this);
  cmbSep_->setObjectName(QStringLiteral("cmbSep"));
  for (const char* t : peq::kDistSepItems) cmbSep_->addItem(Q(t));
  cmbSep_->setToolTip(Q(peq::kCmbSepTip));
  cmdProtokoll_ = new QPushButton(Mnemonic(peq::kCmdProtokollCaption), this);
  cmdProtokoll_->setObjectName(QStringLiteral("cmdProtokoll"));
  cmdProtokoll_->setToolTip(Q(peq::kCmdProtokollTip));
  cmdOpenNew_ = new QPushButton(Mnemonic(peq::kCmdOpenNewCaption), this);
  cmdOpenNew_->setObjectName(QStringLiteral("cmdOpenNew"));
  cmdOpenNew_->setToolTip(Q(peq::kCmdOpenNewTip));
  lblDatei_ = new QLabel(this);
  lblZeilen_ = new QLabel(this);
  lblZeilen_->setObjectName(QStringLiteral("lblZeilen"));
  auto* sep = new QHBoxLayout;
  sep->addWidget(new QLabel(Q(peq::kCmbSepLabel), this));
  sep->addWidget(cmbSep_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdProtokoll_);
  buttons->addWidget(cmdOpenNew_);
  auto* all = new QVBoxLayout(this);
  all->addLayout(sep);
  all->addWidget(lblDatei_);
  all->addWidget(lblZeilen_);
  all->addLayout(buttons);
  connect(cmbSep_, qOverload<int>(&QComboBox::currentIndexChanged), this,
          [this](int i) { Do([&] { f_.DistProtokoll.cmbSep_Click(f_, i); }); });
  connect(cmdProtokoll_, &QPushButton::clicked, this, [this] { Do([&] { f_.DistProtokoll.cmdProtokoll_Click(f_); }); });
  connect(cmdOpenNew_, &QPushButton::clicked, this, [this] { Do([&] { f_.DistProtokoll.cmdOpenNew_Click(f_); }); });
  Render();
}

void DistProtokollDialog::Render() {
  const peq::frmDistProtokoll& w = f_.DistProtokoll;
  const QSignalBlocker b(cmbSep_);
  cmbSep_->setCurrentIndex(w.cmbSep);
  lblDatei_->setText(Q(w.P.ProtokollDatei));
  lblZeilen_->setText(QString::number(w.P.ProtZeilen()));
}

void DistProtokollDialog::Cancel() { f_.DistProtokoll.cmdClose(f_); }

}  // namespace pequi

#include "ui/tipdialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "windows/tip.h"

namespace pequi {

TipDialog::TipDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmTip, parent) {
  setObjectName(QStringLiteral("frmTip"));
  setWindowTitle(Q(peq::kTipCaption));
  text_ = new QLabel(this);
  text_->setObjectName(QStringLiteral("lblTipText"));
  text_->setWordWrap(true);
  text_->setMinimumSize(420, 110);
  text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  text_->setFrameShape(QFrame::StyledPanel);
  text_->setMargin(10);
  chk_ = new QCheckBox(Q(peq::kTipCheckCaption), this);
  chk_->setObjectName(QStringLiteral("chkLoadTipsAtStartup"));
  auto* next = new QPushButton(Mnemonic(peq::kTipNextCaption), this);
  next->setObjectName(QStringLiteral("cmdNextTip"));
  auto* ok = new QPushButton(Mnemonic(peq::kTipCloseCaption), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  // Enter closes the tip; "Next Tip" only by its own key or a click.
  next->setAutoDefault(false);
  ok->setAutoDefault(false);
  ok->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(chk_);
  buttons->addStretch();
  buttons->addWidget(next);
  buttons->addWidget(ok);
  auto* all = new QVBoxLayout(this);
  all->addWidget(text_, 1);
  all->addLayout(buttons);
  connect(next, &QPushButton::clicked, this, [this] { Do([&] { f_.Tip.cmdNextTip(); }); });
  connect(ok, &QPushButton::clicked, this, [this] { Do([&] { Cancel(); }); });
  connect(chk_, &QCheckBox::toggled, this, [this](bool on) { f_.Tip.chkLoadTipsAtStartup_Click(f_, on); });
  Render();
}

void TipDialog::Render() {
  text_->setText(Q(f_.Tip.lblTipText));
  const QSignalBlocker b(chk_);
  chk_->setChecked(f_.Tip.chkLoadTipsAtStartup);
}

void TipDialog::Cancel() { f_.Tip.cmdOK(f_); }

}  // namespace pequi

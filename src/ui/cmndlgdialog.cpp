#include "ui/cmndlgdialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "ui/qtconvert.h"
#include "windows/cmndlg.h"

namespace pequi {

namespace {

void SetItems(QListWidget* list, const std::vector<std::string>& texts, int current) {
  const QSignalBlocker b(list);
  QStringList want;
  for (const std::string& t : texts) want << Q(t);
  QStringList have;
  for (int k = 0; k < list->count(); ++k) have << list->item(k)->text();
  if (want != have) {
    list->clear();
    list->addItems(want);
  }
  list->setCurrentRow(current);
}

}  // namespace

CmnDlgDialog::CmnDlgDialog(peq::mdiPEQ& f, QWidget* parent) : StateDialog(f, peq::WindowId::frmCmnDlg, parent) {
  setObjectName(QStringLiteral("frmCmnDlg"));
  drives_ = new QComboBox(this);
  drives_->setObjectName(QStringLiteral("drvOpenList"));
  dirLabel_ = new QLabel(this);
  dirs_ = new QListWidget(this);
  dirs_->setObjectName(QStringLiteral("dirOpenList"));
  files_ = new QListWidget(this);
  files_->setObjectName(QStringLiteral("filOpenList"));
  name_ = new QLineEdit(this);
  name_->setObjectName(QStringLiteral("txtOpenFile"));
  auto* up = new QPushButton(Q(peq::kCmnDlgReturn), this);
  up->setObjectName(QStringLiteral("cmdReturn"));
  ok_ = new QPushButton(Q(peq::kCmnDlgOK), this);
  ok_->setObjectName(QStringLiteral("cmdOpenOK"));
  ok_->setDefault(true);
  auto* cancel = new QPushButton(Q(peq::kCmnDlgCancel), this);
  cancel->setObjectName(QStringLiteral("cmdOpenCancel"));
  auto* help = new QPushButton(Q(peq::kCmnDlgHelp), this);
  help->setObjectName(QStringLiteral("cmdHelp"));
  for (QPushButton* b : {up, cancel, help}) b->setAutoDefault(false);

  pane_ = new QGroupBox(this);
  auto* pl = new QVBoxLayout(pane_);
  stoffeTitel_ = new QLabel(pane_);
  stoffe_ = new QLabel(pane_);
  stoffe_->setObjectName(QStringLiteral("lblStoffe"));
  stoffe_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  info_ = new QLabel(pane_);
  info_->setObjectName(QStringLiteral("lblInfo"));
  bank_ = new QLabel(pane_);
  bank_->setObjectName(QStringLiteral("lblBank"));
  projekt_ = new QGroupBox(pane_);
  auto* prl = new QVBoxLayout(projekt_);
  kommentarTitel_ = new QLabel(projekt_);
  kommentar_ = new QLineEdit(projekt_);
  kommentar_->setObjectName(QStringLiteral("txtKommentar"));
  prl->addWidget(bank_);
  prl->addWidget(kommentarTitel_);
  prl->addWidget(kommentar_);
  pl->addWidget(stoffeTitel_);
  pl->addWidget(stoffe_, 1);
  pl->addWidget(info_);
  pl->addWidget(projekt_);

  auto* left = new QGridLayout;
  left->addWidget(new QLabel(Q(peq::kCmnDlgDateiLabel), this), 0, 0);
  left->addWidget(name_, 0, 1);
  left->addWidget(files_, 1, 0, 1, 2);
  auto* mid = new QVBoxLayout;
  mid->addWidget(drives_);
  mid->addWidget(dirLabel_);
  mid->addWidget(dirs_, 1);
  mid->addWidget(up);
  auto* lists = new QHBoxLayout;
  lists->addLayout(left, 2);
  lists->addLayout(mid, 2);
  lists->addWidget(pane_, 3);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(help);
  buttons->addStretch();
  buttons->addWidget(ok_);
  buttons->addWidget(cancel);
  auto* all = new QVBoxLayout(this);
  all->addLayout(lists, 1);
  all->addLayout(buttons);
  resize(900, 440);

  connect(drives_, qOverload<int>(&QComboBox::activated), this, [this](int k) { Do([&] { w().drvOpenList_Change(f_, k); }); });
  connect(dirs_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* it) { Do([&] { w().dirOpenList_Click(f_, dirs_->row(it)); }); });
  connect(up, &QPushButton::clicked, this, [this] { Do([&] { w().cmdReturn(f_); }); });
  connect(files_, &QListWidget::currentRowChanged, this, [this](int row) { Do([&] { w().filOpenList_Click(f_, row); }); });
  connect(files_, &QListWidget::itemDoubleClicked, this, [this] {
    bool ok = false;
    Do([&] { ok = w().cmdOpenOK(f_); });
    if (ok) accept();
  });
  connect(name_, &QLineEdit::textEdited, this, [this](const QString& t) { w().txtOpenFile_Change(S(t)); });
  connect(kommentar_, &QLineEdit::textEdited, this, [this](const QString& t) { w().txtKommentar_Change(f_, S(t)); });
  connect(ok_, &QPushButton::clicked, this, [this] {
    bool ok = false;
    Do([&] { ok = w().cmdOpenOK(f_); });
    if (ok) accept();
  });
  connect(cancel, &QPushButton::clicked, this, [this] { Cancel(); });
  connect(help, &QPushButton::clicked, this, [this] { w().cmdHelp(f_); });
  Render();
}

void CmnDlgDialog::Render() {
  const peq::frmCmnDlg& d = f_.CmnDlg;
  setWindowTitle(Q(d.Caption));
  {
    const QSignalBlocker b(drives_);
    if (drives_->count() != static_cast<int>(d.drvOpenList.size())) {
      drives_->clear();
      for (const std::string& s : d.drvOpenList) drives_->addItem(Q(s));
    }
    drives_->setCurrentIndex(d.drvIndex);
  }
  dirLabel_->setText(Q(d.Verzeichnis));
  SetItems(dirs_, d.dirOpenList, -1);
  SetItems(files_, d.filOpenList, d.filIndex);
  {
    const QSignalBlocker b(name_);
    if (name_->text() != Q(d.txtOpenFile)) name_->setText(Q(d.txtOpenFile));
  }
  pane_->setTitle(Q(d.fraTitel));
  stoffeTitel_->setText(Q(d.lblStoffeTitel));
  stoffe_->setText(Q(d.lblStoffe));
  info_->setText(Q(d.lblInfo));
  info_->setVisible(!d.ProjektModus);
  projekt_->setVisible(d.ProjektModus);
  projekt_->setTitle(Q(d.fraProjekt));
  bank_->setText(Q(d.lblBank));
  kommentarTitel_->setText(Q(d.lblKommentarTitel));
  {
    const QSignalBlocker b(kommentar_);
    if (kommentar_->text() != Q(d.txtKommentar)) kommentar_->setText(Q(d.txtKommentar));
  }
  ok_->setEnabled(d.cmdOpenOKEnabled);
}

void CmnDlgDialog::Cancel() {
  w().cmdOpenCancel(f_);
  QDialog::reject();
}

}  // namespace pequi

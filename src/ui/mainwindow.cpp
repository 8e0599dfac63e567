#include "ui/mainwindow.h"

#include <algorithm>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocument>
#include <QFrame>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStyle>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include "ui/calcinputdialog.h"
#include "ui/calcoutdialog.h"
#include "ui/aeditdialog.h"
#include "ui/cmndlgdialog.h"
#include "ui/distprotokolldialog.h"
#include "ui/geinputdialog.h"
#include "ui/graph2dwindow.h"
#include "ui/graphcalcdialog.h"
#include "ui/graph3dwindow.h"
#include "ui/kijinputdialog.h"
#include "ui/manuinputdialog.h"
#include "ui/optionsdialog.h"
#include "ui/qtconvert.h"
#include "ui/stoffwahldialog.h"
#include "ui/textwindows.h"
#include "ui/thieledialog.h"
#include "ui/titelbreite.h"
#include "ui/tipdialog.h"
#include "ui/tpxeditdialog.h"
#include "ui/tpxinputdialog.h"
#include "ui/vmodelldialog.h"
#include "windows/mnemonic.h"
#include "windows/protokoll.h"

namespace pequi {

using peq::Cmd;
using peq::CmdId;
using peq::WindowId;

namespace {

std::size_t Slot(WindowId id) { return static_cast<std::size_t>(id); }

// "Description (*.Q07)|*.Q07|..." as a Qt name filter list; the patterns are also offered in
// lower case, since this file system tells the cases apart.
QStringList NameFilters(const std::string& filter) {
  QStringList out;
  const QStringList parts = Q(filter).split(QLatin1Char('|'));
  for (int k = 0; k + 1 < parts.size(); k += 2) {
    QStringList pats;
    for (const QString& p : parts[k + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
      pats << p.trimmed();
      if (p.trimmed().toLower() != p.trimmed()) pats << p.trimmed().toLower();
    }
    QString desc = parts[k];
    const int paren = desc.indexOf(QLatin1Char('('));
    if (paren >= 0) desc = desc.left(paren).trimmed();
    out << desc + QStringLiteral(" (") + pats.join(QLatin1Char(' ')) + QLatin1Char(')');
  }
  if (out.isEmpty()) out << QStringLiteral("All files (*)");
  return out;
}

}  // namespace

MainWindow::MainWindow(const QString& progDir, const QString& dataDir, QWidget* parent)
    : QMainWindow(parent), frame_(session_, *this, S(progDir), S(dataDir)) {
  setObjectName(QStringLiteral("mdiPEQ"));
  setWindowTitle(Q(frame_.Title()));
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  BuildFirstSteps();
  layout->addWidget(picture1_, 0, Qt::AlignLeft);
  mdi_ = new QMdiArea(central);
  mdi_->setObjectName(QStringLiteral("mdiArea"));
  layout->addWidget(mdi_, 1);
  setCentralWidget(central);
  BuildMenus();
  BuildToolbar();
  RenderCommands();
  resize(1100, 720);
  // At exit an open result record is closed.
  frame_.ProtokollSchreiben = [this] { peq::ProtokollBeenden(session_); };
  // An accepted diagram input opens the 2D diagram (and draws it at once when asked).
  frame_.DiagrammRechnen = [this] { peq::Graph2DRechnen(frame_, frame_.Graph2D); };
}

MainWindow::~MainWindow() {
  // The views go first, while the window states they show still exist.
  for (QPointer<QWidget>& w : graveyard_)
    if (w) delete w.data();
  // Sub-windows with their contents; their "destroyed" must not reach this half-gone frame.
  for (QPointer<QMdiSubWindow>& w : subs_) {
    if (w) {
      w->disconnect(this);
      delete w.data();
    }
  }
  for (QPointer<QWidget>& w : windows_) {
    if (w) {
      w->disconnect(this);
      delete w.data();
    }
  }
}

void MainWindow::Start() { frame_.Startup(); }

// ---- menus and toolbar ----

void MainWindow::BuildMenus() {
  const auto& table = peq::CommandTable();
  actions_.assign(table.size(), nullptr);
  for (std::size_t k = 0; k < table.size(); ++k) {
    const peq::CommandDef& d = table[k];
    if (d.kind == peq::CmdKind::Button) continue;
    QMenu* parentMenu = nullptr;
    if (d.parent.name != Cmd::None) {
      parentMenu = menus_.at(peq::CommandPlace(d.parent));
    }
    const CmdId id = d.id;
    switch (d.kind) {
      case peq::CmdKind::Menu: {
        QMenu* m = parentMenu ? parentMenu->addMenu(Caption(d.caption)) : menuBar()->addMenu(Caption(d.caption));
        m->setObjectName(QString::fromStdString(peq::CmdName(id)));
        m->menuAction()->setObjectName(QString::fromStdString(peq::CmdName(id)));
        menus_[static_cast<int>(k)] = m;
        actions_[k] = m->menuAction();
        if (d.action == peq::Action::OpenDaten)
          connect(m, &QMenu::aboutToShow, this, [this, id] { frame_.Run(id); });
        if (d.action == peq::Action::WindowList)
          connect(m, &QMenu::aboutToShow, this, [this, m] { FillWindowMenu(m); });
        break;
      }
      case peq::CmdKind::Separator:
        actions_[k] = parentMenu ? parentMenu->addSeparator() : nullptr;
        break;
      case peq::CmdKind::Command: {
        QAction* a = parentMenu ? parentMenu->addAction(Caption(d.caption)) : menuBar()->addAction(Caption(d.caption));
        a->setObjectName(QString::fromStdString(peq::CmdName(id)));
        connect(a, &QAction::triggered, this, [this, id] { frame_.Run(id); });
        actions_[k] = a;
        break;
      }
      case peq::CmdKind::Button:
        break;
    }
  }
  if (QAction* exit = ActionOf(CmdId{Cmd::mnuExit})) exit->setShortcut(QKeySequence(Qt::ALT | Qt::Key_F4));
}

void MainWindow::BuildToolbar() {
  toolbar_ = addToolBar(QStringLiteral("Toolbar1"));
  toolbar_->setObjectName(QStringLiteral("Toolbar1"));
  toolbar_->setMovable(false);
  const auto& table = peq::CommandTable();
  for (std::size_t k = 0; k < table.size(); ++k) {
    const peq::CommandDef& d = table[k];
    if (d.kind != peq::CmdKind::Button) continue;
    QStyle::StandardPixmap icon = QStyle::SP_FileIcon;
    switch (d.action) {
      case peq::Action::OpenBank: icon = QStyle::SP_FileDialogNewFolder; break;
      case peq::Action::LoadLastSession: icon = QStyle::SP_BrowserReload; break;
      case peq::Action::LoadProject: icon = QStyle::SP_DialogOpenButton; break;
      case peq::Action::SaveProject: icon = QStyle::SP_DialogSaveButton; break;
      default: break;
    }
    if (d.id.index == 4 || d.id.index == 6) toolbar_->addSeparator();
    QAction* a = toolbar_->addAction(style()->standardIcon(icon), Q(peq::AnzeigeCaption(d.tip)));
    a->setToolTip(Q(d.tip));
    a->setObjectName(QString::fromStdString(peq::CmdName(d.id)));
    const int button = d.id.index;
    connect(a, &QAction::triggered, this, [this, button] { frame_.ToolbarClick(button); });
    actions_[k] = a;
  }
  toolbar_->addSeparator();
  cmdErstnutzer_ = new QPushButton(Q(peq::MitZugriffstasten({peq::AnzeigeCaption(peq::kErstnutzerCaption)})[0]), toolbar_);
  cmdErstnutzer_->setObjectName(QStringLiteral("cmdErstnutzer"));
  toolbar_->addWidget(cmdErstnutzer_);
  connect(cmdErstnutzer_, &QPushButton::clicked, this, [this] { frame_.cmdErstnutzer_Click(); });
}

void MainWindow::BuildFirstSteps() {
  picture1_ = new QFrame(this);
  picture1_->setObjectName(QStringLiteral("Picture1"));
  picture1_->setFrameShape(QFrame::StyledPanel);
  picture1_->setAutoFillBackground(true);
  QPalette pal = picture1_->palette();
  pal.setColor(QPalette::Window, QColor(255, 255, 225));
  picture1_->setPalette(pal);
  auto* lay = new QVBoxLayout(picture1_);
  for (int k = 0; k < 5; ++k) {
    label1_[static_cast<std::size_t>(k)] = new QLabel(Q(peq::kErstnutzerTexte[k]), picture1_);
    QLabel* l = label1_[static_cast<std::size_t>(k)];
    l->setObjectName(QStringLiteral("Label1_%1").arg(k));
    l->setWordWrap(true);
    l->installEventFilter(this);
    lay->addWidget(l);
  }
  picture1_->installEventFilter(this);
  picture1_->hide();
}

QAction* MainWindow::ActionOf(CmdId id) const {
  const int k = peq::CommandPlace(id);
  return k < 0 ? nullptr : actions_[static_cast<std::size_t>(k)];
}

QMenu* MainWindow::MenuOf(CmdId id) const {
  auto it = menus_.find(peq::CommandPlace(id));
  return it == menus_.end() ? nullptr : it->second;
}

QWidget* MainWindow::WindowOf(WindowId id) const { return windows_[Slot(id)].data(); }

QWidget* MainWindow::FirstStepsPanel() const { return picture1_; }

void MainWindow::RenderCommands() {
  const auto& table = peq::CommandTable();
  // Menus and commands get their display text with an access key, sibling by sibling.
  std::map<int, std::vector<std::size_t>> siblings;  // by place of the parent, -1 the menu bar
  for (std::size_t k = 0; k < table.size(); ++k) {
    if (!actions_[k]) continue;
    if (table[k].kind != peq::CmdKind::Menu && table[k].kind != peq::CmdKind::Command) continue;
    const int parent = table[k].parent.name == Cmd::None ? -1 : peq::CommandPlace(table[k].parent);
    siblings[parent].push_back(k);
  }
  for (const auto& [parent, ks] : siblings) {
    std::vector<std::string> captions;
    for (std::size_t k : ks) captions.push_back(peq::AnzeigeCaption(frame_.cmds.At(k).caption));
    const std::vector<std::string> texts = peq::MitZugriffstasten(captions);
    for (std::size_t j = 0; j < ks.size(); ++j) {
      QAction* a = actions_[ks[j]];
      if (a->text() != Q(texts[j])) a->setText(Q(texts[j]));
    }
  }
  for (std::size_t k = 0; k < table.size(); ++k) {
    QAction* a = actions_[k];
    if (!a) continue;
    const peq::CommandStates::State& st = frame_.cmds.At(k);
    a->setEnabled(st.enabled);
    a->setVisible(st.visible);
  }
}

void MainWindow::RenderFirstSteps() {
  picture1_->setVisible(frame_.Picture1Visible);
  const int inner = centralWidget() ? centralWidget()->width() : width();
  const int twips = peq::mdiPEQ::Picture1Breite(inner * 15);
  picture1_->setFixedWidth(std::max(100, twips / 15));
}

void MainWindow::FillWindowMenu(QMenu* menu) {
  menu->clear();
  int n = 0;
  for (QMdiSubWindow* w : mdi_->subWindowList()) {
    QAction* a = menu->addAction(w->windowTitle());
    connect(a, &QAction::triggered, this, [this, w] { mdi_->setActiveSubWindow(w); });
    ++n;
  }
  for (QPointer<QWidget>& w : windows_) {
    if (!w || qobject_cast<QMdiSubWindow*>(w.data()) || !w->isVisible() || !w->isWindow()) continue;
    QWidget* target = w.data();
    QAction* a = menu->addAction(target->windowTitle());
    connect(a, &QAction::triggered, this, [target] {
      target->raise();
      target->activateWindow();
    });
    ++n;
  }
  if (n == 0) menu->addAction(QStringLiteral("(no window open)"))->setEnabled(false);
}

// ---- events ----

void MainWindow::closeEvent(QCloseEvent* event) {
  // The query-unload only calls the exit command.
  if (!exiting_) {
    exiting_ = true;
    frame_.Exit();
  }
  event->accept();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) frame_.Activated();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (picture1_) RenderFirstSteps();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    for (int k = 0; k < 5; ++k)
      if (watched == label1_[static_cast<std::size_t>(k)]) {
        frame_.Label1_Click(k);
        return true;
      }
    if (watched == picture1_) {
      frame_.Picture1_Click();
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

// ---- Ui ----

peq::Answer MainWindow::MsgBox(const std::string& title, const std::string& text, peq::MsgIcon icon,
                               peq::Buttons buttons) {
  QMessageBox::Icon qi = QMessageBox::NoIcon;
  switch (icon) {
    case peq::MsgIcon::Stop: qi = QMessageBox::Critical; break;
    case peq::MsgIcon::Warning: qi = QMessageBox::Warning; break;
    case peq::MsgIcon::Information: qi = QMessageBox::Information; break;
    case peq::MsgIcon::Question: qi = QMessageBox::Question; break;
    case peq::MsgIcon::None: break;
  }
  QMessageBox::StandardButtons b = QMessageBox::Ok;
  switch (buttons) {
    case peq::Buttons::Ok: b = QMessageBox::Ok; break;
    case peq::Buttons::OkCancel: b = QMessageBox::Ok | QMessageBox::Cancel; break;
    case peq::Buttons::YesNo: b = QMessageBox::Yes | QMessageBox::No; break;
    case peq::Buttons::YesNoCancel: b = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel; break;
  }
  QWidget* parent = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : this;
  QMessageBox box(qi, Q(title), Q(text), b, parent);
  box.setTextFormat(Qt::PlainText);
  switch (box.exec()) {
    case QMessageBox::Cancel: return peq::Answer::Cancel;
    case QMessageBox::Yes: return peq::Answer::Yes;
    case QMessageBox::No: return peq::Answer::No;
    default: return buttons == peq::Buttons::OkCancel || buttons == peq::Buttons::Ok ? peq::Answer::Ok
                                                                                      : peq::Answer::Cancel;
  }
}

std::optional<std::string> MainWindow::InputBox(const std::string& title, const std::string& prompt,
                                                const std::string& defaultText) {
  QInputDialog d(QApplication::activeModalWidget() ? QApplication::activeModalWidget() : this);
  d.setWindowTitle(Q(title));
  d.setLabelText(Q(prompt));
  d.setTextValue(Q(defaultText));
  TitelPlatz(&d);
  if (d.exec() != QDialog::Accepted) return std::nullopt;
  return S(d.textValue());
}

peq::FileDialogResult MainWindow::FileDialog(const peq::FileDialogRequest& req) {
  QFileDialog d(this, Q(req.title));
  d.setNameFilters(NameFilters(req.filter));
  if (!req.initialDir.empty()) d.setDirectory(Q(req.initialDir));
  if (!req.initialFile.empty()) d.selectFile(Q(req.initialFile));
  QString ext = Q(req.defaultExt);
  ext.remove(QLatin1Char('*')).remove(QLatin1Char('.'));
  if (!ext.isEmpty()) d.setDefaultSuffix(ext);
  if (req.save) {
    d.setAcceptMode(QFileDialog::AcceptSave);
    d.setFileMode(QFileDialog::AnyFile);
  } else {
    d.setAcceptMode(QFileDialog::AcceptOpen);
    d.setFileMode(QFileDialog::ExistingFile);
  }
  peq::FileDialogResult r;
  if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty()) return r;
  const QString path = d.selectedFiles().first();
  r.cancelled = false;
  r.fileName = S(path);
  r.fileTitle = S(QFileInfo(path).fileName());
  return r;
}

std::string MainWindow::GetSetting(const std::string& section, const std::string& key,
                                   const std::string& defaultValue) {
  QSettings settings;
  return S(settings.value(Q(section + "/" + key), Q(defaultValue)).toString());
}

bool MainWindow::SaveSetting(const std::string& section, const std::string& key, const std::string& value) {
  QSettings settings;
  if (!settings.isWritable()) return false;
  settings.setValue(Q(section + "/" + key), Q(value));
  settings.sync();
  return settings.status() == QSettings::NoError;
}

std::string MainWindow::SystemNumberText(double v) { return S(QLocale::system().toString(v)); }

bool MainWindow::Provides(WindowId id) {
  switch (id) {
    case WindowId::frmPhantom:
    case WindowId::frmStoffwahl:
    case WindowId::frmVModell:
    case WindowId::frmGEInput:
    case WindowId::frmKijInput:
    case WindowId::frmOptions:
    case WindowId::frmTip:
    case WindowId::frmCmnDlg:
    case WindowId::frmUnifInkr:
    case WindowId::frmHelp:
    case WindowId::frmTpxInput:
    case WindowId::frmGraph2D:
    case WindowId::frmGraph3D:
    case WindowId::frmCalcInput:
    case WindowId::frmCalcOut:
    case WindowId::frmAEdit:
    case WindowId::frmThieleMcCabe:
    case WindowId::frmDistProtokoll:
    case WindowId::frmGraphCalc:
    case WindowId::frmTpxEdit:
    case WindowId::frmXYEdit:
      return true;
    default:
      return false;
  }
}

QMdiSubWindow* MainWindow::AddMdiChild(QWidget* content, const QString& title, QSize wanted) {
  // Each new child a step below and right of the one before, sized to fit the workspace.
  const QSize area = mdi_->viewport()->size();
  const int step = 26;
  int n = 0;
  for (QMdiSubWindow* w : mdi_->subWindowList())
    if (w->isVisible()) ++n;
  QSize size = wanted.isValid() ? wanted : QSize(640, 480);
  size = size.boundedTo(area);
  int x = (n * step) % std::max(step, area.width() - size.width() + 1);
  int y = (n * step) % std::max(step, area.height() - size.height() + 1);
  if (x + size.width() > area.width()) x = 0;
  if (y + size.height() > area.height()) y = 0;
  QMdiSubWindow* sub = mdi_->addSubWindow(content);
  sub->setWindowTitle(title);
  sub->setAttribute(Qt::WA_DeleteOnClose);
  sub->setGeometry(QRect(QPoint(x, y), size));
  sub->show();
  content->show();
  mdi_->setActiveSubWindow(sub);
  return sub;
}

void MainWindow::Bury(QWidget* w) {
  w->disconnect(this);
  w->hide();
  graveyard_.emplace_back(w);
  QTimer::singleShot(50, this, &MainWindow::Sweep);
}

void MainWindow::Sweep() {
  bool left = false;
  for (QPointer<QWidget>& w : graveyard_) {
    if (!w) continue;
    QWidget* content = w.data();
    if (auto* sub = qobject_cast<QMdiSubWindow*>(content)) content = sub->widget();
    auto* d = qobject_cast<StateDialog*>(content);
    if (d && d->Busy()) {
      left = true;
      continue;
    }
    delete w.data();
  }
  graveyard_.erase(std::remove_if(graveyard_.begin(), graveyard_.end(), [](const QPointer<QWidget>& w) { return w.isNull(); }),
                   graveyard_.end());
  if (left) QTimer::singleShot(50, this, &MainWindow::Sweep);
}

namespace {

// The windows that are children of the frame's workspace; the others are dialogs.
bool ImArbeitsbereich(WindowId id) {
  switch (id) {
    case WindowId::frmGraph2D:
    case WindowId::frmGraph3D:
    case WindowId::frmCalcOut:
    case WindowId::frmUnifInkr:
    case WindowId::frmTpxEdit:
    case WindowId::frmXYEdit:
    case WindowId::frmDistProtokoll:
    case WindowId::frmHelp:
      return true;
    default:
      return false;
  }
}

}  // namespace

void MainWindow::ShowWindow(WindowId id) {
  if (QWidget* old = subs_[Slot(id)].data()) {
    subs_[Slot(id)] = nullptr;
    windows_[Slot(id)] = nullptr;
    Bury(old);
  } else if (QWidget* old2 = windows_[Slot(id)].data()) {
    windows_[Slot(id)] = nullptr;
    Bury(old2);
  }
  QWidget* parent = ImArbeitsbereich(id) ? nullptr : this;
  QWidget* w = nullptr;
  QString title;
  switch (id) {
    case WindowId::frmStoffwahl: w = new StoffwahlDialog(frame_, parent); break;
    case WindowId::frmVModell: w = new VModellDialog(frame_, parent); break;
    case WindowId::frmGEInput: w = new GEInputDialog(frame_, parent); break;
    case WindowId::frmKijInput: w = new KijInputDialog(frame_, parent); break;
    case WindowId::frmOptions: w = new OptionsDialog(frame_, parent); break;
    case WindowId::frmTip: w = new TipDialog(frame_, parent); break;
    case WindowId::frmGraph2D: w = new Graph2DWindow(frame_, frame_.Graph2D, parent); break;
    case WindowId::frmGraph3D: w = new Graph3DWindow(frame_, frame_.Graph3D, parent); break;
    case WindowId::frmCalcInput: w = new CalcInputDialog(frame_, parent); break;
    case WindowId::frmCalcOut: w = new CalcOutDialog(frame_, parent); break;
    case WindowId::frmAEdit: w = new AEditDialog(frame_, parent); break;
    case WindowId::frmThieleMcCabe: w = new ThieleDialog(frame_, parent); break;
    case WindowId::frmDistProtokoll: w = new DistProtokollDialog(frame_, parent); break;
    case WindowId::frmGraphCalc: w = new GraphCalcDialog(frame_, parent); break;
    case WindowId::frmTpxEdit: w = new TpxEditDialog(frame_, parent); break;
    case WindowId::frmXYEdit: w = new ManuInputDialog(frame_, parent); break;
    case WindowId::frmUnifInkr:
      w = new TextWindow(Q(frame_.UnifInkr.Text));
      title = Q(frame_.UnifInkr.Caption);
      w->setWindowTitle(title);
      break;
    default:
      return;
  }
  windows_[Slot(id)] = w;
  if (ImArbeitsbereich(id)) {
    if (title.isEmpty()) title = w->windowTitle();
    QMdiSubWindow* sub = AddMdiChild(w, title, w->size());
    subs_[Slot(id)] = sub;
    // The title of the window shown on its sub-window.
    connect(w, &QWidget::windowTitleChanged, sub, &QWidget::setWindowTitle);
    // Closed from its title bar: the frame unloads it too.
    connect(sub, &QObject::destroyed, this, [this, id] {
      windows_[Slot(id)] = nullptr;
      subs_[Slot(id)] = nullptr;
      if (frame_.IsLoaded(id)) frame_.Unload(id);
    });
  } else {
    w->show();
    w->raise();
    w->activateWindow();
  }
}

bool MainWindow::RunModal(WindowId id) {
  if (id == WindowId::frmTpxInput) {
    TpxInputDialog d(frame_, this);
    windows_[Slot(id)] = &d;
    const bool ok = d.exec() == QDialog::Accepted;
    windows_[Slot(id)] = nullptr;
    return ok;
  }
  if (id != WindowId::frmCmnDlg) return false;
  CmnDlgDialog d(frame_, this);
  windows_[Slot(id)] = &d;
  const bool ok = d.exec() == QDialog::Accepted;
  windows_[Slot(id)] = nullptr;
  return ok;
}

void MainWindow::UnloadWindow(WindowId id) {
  QWidget* w = subs_[Slot(id)] ? static_cast<QWidget*>(subs_[Slot(id)].data()) : windows_[Slot(id)].data();
  windows_[Slot(id)] = nullptr;
  subs_[Slot(id)] = nullptr;
  if (!w) return;
  Bury(w);
}

void MainWindow::Refresh(WindowId id) {
  if (id == WindowId::frmPhantom) {
    RenderFirstSteps();
    return;
  }
  if (auto* d = qobject_cast<StateDialog*>(windows_[Slot(id)].data())) d->Render();
}

void MainWindow::CommandsChanged() { RenderCommands(); }

void MainWindow::FrameTitleChanged() { setWindowTitle(Q(frame_.Title())); }

void MainWindow::StatusLine(const std::string& text) { statusBar()->showMessage(Q(text), 10000); }

void MainWindow::SetClipboard(const std::string& text) { QGuiApplication::clipboard()->setText(Q(text)); }

std::string MainWindow::GetClipboard() { return S(QGuiApplication::clipboard()->text()); }

void MainWindow::Beep() { QApplication::beep(); }

bool MainWindow::PrintText(const std::string& title, const std::string& text) {
  QPrinter printer;
  QPrintDialog d(&printer, this);
  d.setWindowTitle(Q(title));
  if (d.exec() != QDialog::Accepted) return false;
  QTextDocument doc;
  doc.setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  doc.setPlainText(Q(text));
  doc.print(&printer);
  return true;
}

void MainWindow::WaitCursor(bool on) {
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void MainWindow::ShowHelp(int topic) {
  const QString page = Q(peq::HelpPage(frame_.HelpDir, topic).string());
  QMdiSubWindow* existing = subs_[Slot(WindowId::frmHelp)].data();
  if (existing) {
    if (auto* help = qobject_cast<HelpWindow*>(existing->widget())) help->Open(page);
    mdi_->setActiveSubWindow(existing);
    return;
  }
  auto* help = new HelpWindow();
  help->Open(page);
  QMdiSubWindow* sub = AddMdiChild(help, QString::fromLatin1(peq::kHelpCaption));
  connect(help, &HelpWindow::TitleChanged, sub, [sub, help](const QString& t) {
    help->setWindowTitle(t);
    sub->setWindowTitle(t);
  });
  help->setWindowTitle(help->Title());
  sub->setWindowTitle(help->Title());
  windows_[Slot(WindowId::frmHelp)] = help;
  subs_[Slot(WindowId::frmHelp)] = sub;
  connect(sub, &QObject::destroyed, this, [this] {
    windows_[Slot(WindowId::frmHelp)] = nullptr;
    subs_[Slot(WindowId::frmHelp)] = nullptr;
  });
}

void MainWindow::CloseHelp() {
  if (QWidget* w = subs_[Slot(WindowId::frmHelp)].data()) w->close();
}

void MainWindow::Quit() {
  exiting_ = true;
  QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  if (!isHidden()) close();
}

}  // namespace pequi

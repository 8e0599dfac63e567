#include "ui/statedialog.h"

namespace pequi {

StateDialog::StateDialog(peq::mdiPEQ& f, peq::WindowId id, QWidget* parent) : QDialog(parent), f_(f), id_(id) {
  setAttribute(Qt::WA_DeleteOnClose, false);
}

void StateDialog::reject() {
  if (Loaded())
    Do([this] { Cancel(); });
  else
    QDialog::reject();
}

void StateDialog::After() {
  if (Loaded()) Render();
}

}  // namespace pequi

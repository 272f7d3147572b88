#include "desktop/support/ReadOut.h"

#include <QLineEdit>

namespace korva::desktop {

void MakeReadOnly(QLineEdit& box) {
  box.setReadOnly(true);
  box.setFrame(false);
  QPalette ground = box.palette();
  ground.setColor(QPalette::Base, Qt::transparent);  // in every theme
  box.setPalette(ground);
}

}  // namespace korva::desktop

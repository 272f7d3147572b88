#include "desktop/services/DriveBox.h"

#include <QDir>
#include <QStorageInfo>

#include "desktop/support/FormTools.h"

namespace korva::desktop {

QComboBox* NewDriveBox(QWidget* parent) {
  QComboBox* box = NewList(QStringLiteral("Drive1"), parent);
  box->setAccessibleName(QStringLiteral("Drive"));
  box->setToolTip(QStringLiteral("Mounted volumes"));
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    if (volume.isValid() && !volume.device().isEmpty() && volume.device().startsWith('/')) {
      box->addItem(volume.rootPath());
    }
  }
  if (box->findText(QDir::rootPath()) < 0) {
    box->insertItem(0, QDir::rootPath());
  }
  return box;
}

void ShowDriveOf(QComboBox& box, const QString& folder) {
  const int drive = box.findText(QStorageInfo(folder).rootPath());
  if (drive >= 0) {
    box.setCurrentIndex(drive);
  }
}

}  // namespace korva::desktop

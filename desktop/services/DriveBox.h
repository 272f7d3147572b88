// The box of mounted volumes beside a list of folders.
#pragma once

#include <QComboBox>

namespace korva::desktop {

// "Drive1" with the volumes by their root folders.
QComboBox* NewDriveBox(QWidget* parent);

// Shows the volume that `folder` lies on.
void ShowDriveOf(QComboBox& box, const QString& folder);

}  // namespace korva::desktop

// A box of several lines that limits what is typed and pasted, never what the program fills in.
#pragma once

#include <QPlainTextEdit>

namespace korva::desktop {

class DescriptionBox final : public QPlainTextEdit {
  Q_OBJECT

 public:
  DescriptionBox(const QString& name, int greatestLength, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  qsizetype Room() const;

  int greatestLength_;
};

}  // namespace korva::desktop

// The small plan on the card of the open project.
#pragma once

#include <QWidget>
#include <optional>

#include "core/Drawing.h"
#include "core/Korva.h"

namespace korva::desktop {

class CardPlan : public QWidget {
 public:
  explicit CardPlan(QWidget* parent);

  // Shows the panel of the open project to scale, or that its dimensions make none.
  void Show(const Korva& korva);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRectF Room() const;

  std::optional<Drawing> drawing_;
};

}  // namespace korva::desktop

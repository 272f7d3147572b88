// Small helpers that all forms share.
#pragma once

#include <QCheckBox>
#include <QFont>
#include <QFormLayout>
#include <QLabel>
#include <QList>
#include <QPushButton>
#include <QRadioButton>
#include <QString>
#include <QWidget>
#include <functional>
#include <span>
#include <string_view>

#include "desktop/support/Session.h"

class QAction;
class QBoxLayout;
class QComboBox;
class QDialog;
class QLineEdit;
class QVBoxLayout;
class QMenu;
class QMenuBar;

namespace korva::desktop {

// Captions and tips that more than one window has.
inline constexpr const char* kHelpCaption = "Help";
inline constexpr const char* kHelpTip = "How to get help";
inline constexpr const char* kCloseTip = "Closes this window";
inline constexpr const char* kSavePdfCaption = "Save as P&DF...";
inline constexpr const char* kSavePictureCaption = "&Save Picture...";
inline constexpr const char* kViewPlanCaption = "&View Plan";
inline constexpr const char* kViewPlanTip = "Shows a plan view of the panel";

QString FromUtf8(std::string_view text);

// "optLam" and 0 make "optLam(0)", the name of a member of a control array.
QString IndexedName(const char* array, int index);

// A control with its name and caption.
QPushButton* NewButton(const char* name, const QString& caption, QWidget* parent);
// With its tip and what a click does.
QPushButton* NewButton(const char* name, const char* caption, const char* tip, QWidget& form,
                       std::function<void()> action);
// The button "Help", which shows what all of them show.
QPushButton* NewHelpButton(const char* name, Session& session, QWidget* form, const char* tip = "");
QLabel* NewLabel(const QString& name, const QString& caption, QWidget* parent);
QCheckBox* NewCheckBox(const char* name, const QString& caption, QWidget* parent);
QRadioButton* NewOption(const QString& name, const QString& caption, QWidget* parent);

// A list to choose from, with its name; the wheel turns the page, not the choice.
QComboBox* NewList(const QString& name, QWidget* parent);

// A menu, and a command of one; run-time errors of the command end there.
QMenu* AddMenu(QMenuBar& bar, const char* name, const char* caption);
QAction* AddItem(Session& session, QMenu& menu, const char* array, int index, const char* caption,
                 std::function<void()> command);

// Makes a box as wide as that many digits need.
void SetColumns(QLineEdit& box, int digits);

// The wheel over a control goes to what it stands in, and never changes the control's value.
void LetWheelPass(QWidget& control);

// The index of the set button of an option array, 0 if none is set.
int GetArrayIndex(std::span<QRadioButton* const> options);
// Sets the button of that index; false, and none is set, if there is no such button.
bool SetArrayIndex(std::span<QRadioButton* const> options, int index);

// The gap of all layouts, half the height of the font.
int SpacingUnit(const QWidget& widget);
// Gaps and margins as all forms have them.
void ApplySpacing(QLayout& layout, const QWidget& widget);
// A column as the layout of `widget`, with them.
QVBoxLayout* NewColumn(QWidget* widget);
// Keeps the place of a hidden widget, so that nothing jumps.
void KeepPlace(QWidget& widget);

// A row of buttons at the bottom: `help` at the left, the others at the right in their order.
QBoxLayout* NewButtonRow(QPushButton* help, const QList<QPushButton*>& buttons);

// The same of a dialog: OK, the default, which does `ok`, the buttons `between`, and Cancel.
QBoxLayout* NewOkCancelRow(QDialog& dialog, QPushButton* help, const char* okName, const char* cancelName,
                           const std::function<void()>& ok, const QList<QPushButton*>& between = {});

// Takes the toolkit's pictures off the buttons of one of its own dialogs: no other window has them.
void DropButtonIcons(const QWidget& dialog);

// The width that a window's title needs, with the buttons beside it.
int TitleWidth(const QWidget& form);

// Centres a window on the screen of the one that it came from (`from`, else its parent, else the open one),
// wide enough for its title, never larger than the screen, frame included, and never outside it.
void CenterForm(QWidget& form, const QWidget* from = nullptr);

// Marks a window that stands beside the others, such as the help: nothing belongs to it.
inline constexpr const char* kAuxiliaryWindowProperty = "aside";

// The window that a message box or a dialog belongs to: the active one unless it is disabled, else one that
// is open and enabled.
QWidget* FrontWindow();

// Shows what every button "Help" shows.
void ShowHelpHint(Session& session);

// A font whose letters are all equally wide, "Courier New" or what stands in for it.
QFont FixedPitchFont(int points = 10);

}  // namespace korva::desktop

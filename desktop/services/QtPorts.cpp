#include "desktop/services/QtPorts.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>
#include <QUrl>
#include <utility>

#include "desktop/services/OpenOnDesktop.h"
#include "desktop/support/ContextHelp.h"
#include "desktop/support/FormTools.h"

namespace korva::desktop {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kNone:
      return QMessageBox::NoIcon;
    case MessageIcon::kCritical:
      return QMessageBox::Critical;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kInformation:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

struct ButtonSet {
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton standard;
  QMessageBox::StandardButton escape;
};

ButtonSet ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOk:
      return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
    case MessageButtons::kOkCancel:
      return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
    case MessageButtons::kYesNo:
      return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
    case MessageButtons::kYesNoDefaultNo:
      return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No, QMessageBox::No};
    case MessageButtons::kYesNoCancel:
      return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
              QMessageBox::Cancel};
    case MessageButtons::kRetryCancel:
      return {QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Retry, QMessageBox::Cancel};
  }
  return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

MessageAnswer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Ok:
      return MessageAnswer::kOk;
    case QMessageBox::Yes:
      return MessageAnswer::kYes;
    case QMessageBox::No:
      return MessageAnswer::kNo;
    case QMessageBox::Retry:
      return MessageAnswer::kRetry;
    default:
      return MessageAnswer::kCancel;
  }
}

// The dialog takes the pattern from the brackets at the end, and "*.*" alone would miss names without a
// point.
QString FilterText(const std::string& caption) {
  return FromUtf8(caption).replace(QLatin1String("(*.*)"), QLatin1String("(*.* *)"));
}

// A file name or a line of a file is shown as it is, and never read as rich text; the box's own setting holds
// for the text alone and not for the detail.
void KeepPlain(QMessageBox& box) {
  box.setTextFormat(Qt::PlainText);
  for (QLabel* label : box.findChildren<QLabel*>()) {
    label->setTextFormat(Qt::PlainText);
  }
}

// The ending that a filter stands for: "pdf" of "Portable document (*.pdf)"; nothing where it takes any.
QString EndingOf(const QString& filter) {
  static const QRegularExpression one(QStringLiteral("\\(\\*\\.(\\w+)\\)$"));
  return one.match(filter).captured(1);
}

// The toolkit makes a box as wide as its text.
void MakeRoomForTitle(QMessageBox& box) {
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->addItem(new QSpacerItem(TitleWidth(box), 0), grid->rowCount(), 0, 1, grid->columnCount());
  }
}

// A text whose long words, such as file names, may go on in a further line: a label that cannot break a word
// is as wide as the longest one.
QString Breakable(std::string_view text) {
  static constexpr int kLongestPiece = 90;  // characters
  QString broken;
  int piece = 0;
  for (const QChar c : FromUtf8(text)) {
    piece = c.isSpace() ? 0 : piece + 1;
    if (piece > kLongestPiece && !c.isLowSurrogate() && !c.isMark()) {
      broken += QChar(0x200B);  // a place to break at, which does not show
      piece = 1;
    }
    broken += c;
  }
  return broken;
}

// What a box covered is painted again before a long command goes on. No event is let in for it: a window that
// was closed meanwhile would be deleted, and the command that has asked may be that window's.
void PaintWindows() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) {
      window->repaint();
    }
  }
}

// A box over a busy program has to be usable: the pointer is normal while it is open.
class NormalPointer {
 public:
  NormalPointer() : busy_(QApplication::overrideCursor() != nullptr) {
    if (busy_) {
      QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
  }
  ~NormalPointer() {
    if (busy_) {
      QApplication::restoreOverrideCursor();
    }
  }
  NormalPointer(const NormalPointer&) = delete;
  NormalPointer& operator=(const NormalPointer&) = delete;

 private:
  bool busy_;
};

}  // namespace

MessageAnswer QtMessages::Show(const Message& message) {
  const NormalPointer pointer;
  const ButtonSet set = ButtonsOf(message.buttons);
  QMessageBox box(FrontWindow());
  box.setObjectName(QStringLiteral("MsgBox"));
  box.setProperty(kTopicProperty, FromUtf8(message.topic));
  box.setText(Breakable(message.text));
  box.setInformativeText(Breakable(message.detail));
  KeepPlain(box);
  box.setWindowTitle(FromUtf8(message.title));
  box.setIcon(IconOf(message.icon));
  box.setStandardButtons(set.buttons);
  box.setDefaultButton(set.standard);
  box.setEscapeButton(set.escape);
  DropButtonIcons(box);
  box.ensurePolished();
  MakeRoomForTitle(box);
  const MessageAnswer answer = AnswerOf(box.exec());
  PaintWindows();
  return answer;
}

std::optional<std::string> QtFileChoice::ChooseFile(const FileQuestion& question) {
  const NormalPointer pointer;
  QFileDialog dialog(FrontWindow(), FromUtf8(question.Title), FromUtf8(question.Folder));
  dialog.setObjectName(QStringLiteral("CommonDialog1"));
  dialog.setAcceptMode(question.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(question.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  QStringList filters;
  for (const std::string& filter : question.Filters) {
    filters << FilterText(filter);
  }
  dialog.setNameFilters(filters);
  if (question.ActiveFilter < question.Filters.size()) {
    dialog.selectNameFilter(filters[static_cast<qsizetype>(question.ActiveFilter)]);
  }
  dialog.setDefaultSuffix(FromUtf8(question.DefaultExtension));
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString& filter) {
    if (const QString ending = EndingOf(filter); !ending.isEmpty()) {
      dialog.setDefaultSuffix(ending);  // of a name that is typed without one
    }
  });
  if (!question.Name.empty()) {
    dialog.selectFile(FromUtf8(question.Name));
  }
  DropButtonIcons(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return std::nullopt;
  }
  return dialog.selectedFiles().constFirst().toStdString();
}

void QtClipboard::SetText(std::string_view text) {
  QGuiApplication::clipboard()->setText(FromUtf8(text));
}

void QtClipboard::SetPicture(std::string_view png) {
  QGuiApplication::clipboard()->setImage(QImage::fromData(QByteArrayView(png)));
}

bool QtDocuments::Open(const std::string& file) {
  return OpenOnDesktop(QUrl::fromLocalFile(FromUtf8(file)));
}

bool QtDocuments::OpenPage(const std::string& address) {
  return OpenOnDesktop(QUrl(FromUtf8(address)));
}

bool QtPrograms::Run(const std::string& program, const std::vector<std::string>& arguments) {
  QStringList list;
  for (const std::string& argument : arguments) {
    list << FromUtf8(argument);
  }
  return QProcess::startDetached(FromUtf8(program), list);
}

void QtBusy::Begin() {
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtBusy::End() {
  QApplication::restoreOverrideCursor();
}

}  // namespace korva::desktop

// One option in the window: its control, the line of help below it and what is wrong with it.
#pragma once

#include <QWidget>
#include <cstddef>
#include <vector>

#include "customizer/options.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tidewarden {

struct ListColours;
struct OptionNote;

// Left of what is in a field. The frame that some looks draw around a box with its words lies in
// it.
inline constexpr int kFieldMargin = 4;

// What a field shows.
struct FieldState {
  QString text;
  bool on = false;
  std::vector<Choice> choices;  // of a list
  std::size_t chosen = 0;       // choices.size() for what is none of them
};

// Controls are named after the option: chkUseSkin, txtFontSize, cmbFontName, cmdBrowseAlarmPath,
// lblUseSkinHelp, lblUseSkinNote.
class OptionField : public QWidget {
  Q_OBJECT

 public:
  OptionField(const Option& option, const QString& help, QWidget* parent);

  void Render(const FieldState& state);
  void RenderNote(const QString& text, bool refuses);
  // For the colours: a custom pair, or none.
  void RenderColours(const ListColours& own);

  // Gives the control the focus, its text selected.
  void TakeFocus();

  // A button in the row of the control, right of it.
  QPushButton* AddButton(const QString& name, const QString& caption,
                         const QString& accessibleName);

 Q_SIGNALS:
  void Switched(bool /*on*/);
  void Edited(const QString& /*text*/);  // typed or chosen
  void OwnChosen();                      // the colours are to be the user's own
  void Left();                           // the control has lost the focus, or Return was pressed

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakeSwitch(const QString& label);
  void MakeLabel(const QString& label);
  void MakeList();
  void MakeFontList();
  void MakeBox();
  void MakeTexts(const QString& help);
  void FillList(const FieldState& state);
  void IndentTexts();
  void ColourTexts();

  const Option& option_;
  QString name_;
  QString help_;
  bool refuses_ = false;
  QBoxLayout* row_;
  QWidget* control_ = nullptr;
  QCheckBox* check_ = nullptr;
  QComboBox* list_ = nullptr;
  QLineEdit* box_ = nullptr;
  QLabel* helpLabel_ = nullptr;
  QLabel* note_ = nullptr;
};

// The colours of a list as a small picture, for buttons and lists.
[[nodiscard]] QIcon ColourPicture(const ListColours& colours, const QPalette& palette);

// A text between the colours of the window and its text that can still be read well.
[[nodiscard]] QColor QuietColour(const QPalette& palette);

}  // namespace tidewarden

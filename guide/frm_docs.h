// The help window: the contents or what a search has found on the left, the text on the right.
#pragma once

#include <QWidget>
#include <functional>

#include "guide/docs_session.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimer;

namespace tidewarden {

class DocsText;

class frmDocs : public QWidget {
  Q_OBJECT

 public:
  // The session outlives the window.
  explicit frmDocs(DocsSession& session, QWidget* parent = nullptr);

  // A style sheet; empty for the plain look.
  void ApplySkin(const QString& styleSheet);

  // Opens an https address outside the program; does nothing as long as it is not set.
  std::function<void(const QString& address)> OpenOutside;

  // Shows what the session is at.
  void Render();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void SetUpControls();
  void SetUpKeys();
  void LayOut();
  void Ask();
  void OpenRow(int row);
  void OpenFirstRow();
  void FollowLink(const QUrl& link);
  void FindNext();
  void FindPrevious();
  void RenderText();
  void RenderRows();
  void ColourPlaceholder();
  void FillRows();
  void RenderMatches();
  void ScrollToPlace();
  void SelectMatch(bool forward);

  DocsSession& session_;
  QTimer* scrollLater_;
  std::size_t shownTopic_;
  int shownZoom_ = 0;
  GuidePlace shownPlace_;

  QPushButton* cmdBack;
  QPushButton* cmdForward;
  QPushButton* cmdContents;
  QPushButton* cmdSmaller;
  QPushButton* cmdLarger;
  QLineEdit* txtSearch;
  QLabel* lblFound;
  QListWidget* lstTopics;
  DocsText* txtText;
};

}  // namespace tidewarden

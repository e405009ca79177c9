#pragma once

#include <QObject>

class QAbstractButton;
class QAbstractItemView;
class QLineEdit;

namespace snippetarium {

/// An entry above a list keeps the focus while one goes up and down in the list. Owned by the
/// entry.
class ListKeys final : public QObject {
    Q_OBJECT

  public:
    ListKeys(QLineEdit* entry, QAbstractItemView* list);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAbstractItemView* list_;
};

/// The Del key in the list does what the button does, while that is enabled.
void RemoveByKey(QAbstractItemView* list, QAbstractButton* button);

}  // namespace snippetarium

// SPDX-License-Identifier: MIT
#pragma once
// A search over every loaded part: name patterns and item conditions, as
// the command-line tool's `parts`/`--where` take them, with the results as a
// list to pick from.

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;

namespace devctrl {

class PartSearchBox : public QWidget {
    Q_OBJECT
  public:
    explicit PartSearchBox(QWidget* parent = nullptr);

    // The obsolete and ASC filters the search applies, those of the picker.
    void setFilters(bool withObsolete, bool ascOnly);
    // Searches for `text`: terms separated by ',' or ';'; a term with a
    // comparison (LUT>=20000, Package~BG*) is a condition, any other holds
    // blank-separated name patterns (ZR12-* *BG256*).
    void search(const QString& text);

  signals:
    void partChosen(const QString& part);

  private:
    void showError(const QString& message, const QString& unknownName,
                   const std::vector<std::string>& suggestions);

    QLineEdit* m_query;
    QListWidget* m_results;
    QLabel* m_message;
    bool m_withObsolete = false;
    bool m_ascOnly = false;
};

}  // namespace devctrl

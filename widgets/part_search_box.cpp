// SPDX-License-Identifier: MIT
#include "part_search_box.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QVBoxLayout>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/near_names.h"
#include "devctrl/mngr/part_filter.h"
#include "devctrl/mngr/part_search.h"

namespace devctrl {

namespace {
// A list of a million rows helps no one; the count says there are more.
constexpr int kShownResults = 1000;

tarn::vyxpn::PartQuery queryOf(const QString& text) {
    tarn::vyxpn::PartQuery query;
    for (const QString& term : text.split(QRegularExpression("[,;]"), Qt::SkipEmptyParts)) {
        const std::string trimmed = term.trimmed().toStdString();
        if (trimmed.empty())
            continue;
        if (tarn::vyxpn::PartCondition::hasOperator(trimmed)) {
            query.where.push_back(trimmed);
            continue;
        }
        for (const QString& pattern : term.split(' ', Qt::SkipEmptyParts))
            query.patterns.push_back(pattern.toStdString());
    }
    return query;
}
}  // namespace

PartSearchBox::PartSearchBox(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("Sea&rch all parts:"), this);
    m_query = new QLineEdit(this);
    m_query->setObjectName("search");
    m_query->setPlaceholderText(tr("ZR12-*BG*, LUT>=20000  (Enter)"));
    m_query->setAccessibleName(tr("Search all parts"));
    m_query->setClearButtonEnabled(true);
    label->setBuddy(m_query);
    m_message = new QLabel(this);
    m_message->setObjectName("searchMessage");
    m_message->setWordWrap(true);
    m_message->setTextInteractionFlags(Qt::TextBrowserInteraction);
    m_results = new QListWidget(this);
    m_results->setObjectName("searchResults");
    m_results->setAccessibleName(tr("Search results"));
    layout->addWidget(label);
    layout->addWidget(m_query);
    layout->addWidget(m_message);
    layout->addWidget(m_results, 1);

    connect(m_query, &QLineEdit::returnPressed, this, [this] { search(m_query->text()); });
    connect(m_results, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { emit partChosen(item->text()); });
    connect(m_results, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { emit partChosen(item->text()); });
}

void PartSearchBox::setFilters(bool withObsolete, bool ascOnly) {
    m_withObsolete = withObsolete;
    m_ascOnly = ascOnly;
}

void PartSearchBox::search(const QString& text) {
    if (m_query->text() != text)
        m_query->setText(text);
    m_results->clear();
    m_message->clear();
    auto* mngr = tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    if (!mngr)
        return;
    tarn::vyxpn::PartQuery query = queryOf(text);
    query.withObsolete = m_withObsolete;
    query.ascOnly = m_ascOnly;
    std::vector<tarn::vyxpn::FoundPart> found;
    try {
        found = tarn::vyxpn::searchParts(*mngr, query);
    } catch (const tarn::vyxpn::UnknownNameError& e) {
        showError(QString::fromStdString(e.what()), QString::fromStdString(e.name()),
                  e.suggestions());
        return;
    } catch (const std::exception& e) {
        showError(QString::fromStdString(e.what()), QString(), {});
        return;
    }
    const int shown = std::min<int>(kShownResults, static_cast<int>(found.size()));
    for (int i = 0; i < shown; ++i)
        m_results->addItem(QString::fromStdString(found[i].name));
    m_message->setText(found.size() > static_cast<size_t>(shown)
                           ? tr("%1 parts; the first %2 are listed").arg(found.size()).arg(shown)
                           : tr("%n part(s)", nullptr, shown));
}

void PartSearchBox::showError(const QString& message, const QString& unknownName,
                              const std::vector<std::string>& suggestions) {
    QString html = message.toHtmlEscaped();
    if (!suggestions.empty()) {
        html += "<br>" + tr("Use:");
        for (const auto& suggestion : suggestions) {
            const QString name = QString::fromStdString(suggestion).toHtmlEscaped();
            html += QString(" <a href=\"%1\">%1</a>").arg(name);
        }
    }
    m_message->setText(html);
    m_message->disconnect(this);
    connect(m_message, &QLabel::linkActivated, this, [this, unknownName](const QString& name) {
        QString text = m_query->text();
        text.replace(unknownName, name);
        search(text);
    });
}

}  // namespace devctrl

// SPDX-License-Identifier: MIT
#include "devctrl/widgets/device_selection_widget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "asc_link_panel.h"
#include "catalogue_loader.h"
#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "part_name_resolver.h"
#include "part_properties_view.h"
#include "part_search_box.h"

namespace devctrl {

using tarn::vyxpn::StringList;
using tarn::vyxpn::TarnDeviceMngr;

namespace {
std::string text(const QComboBox* box) {
    return box->currentText().toStdString();
}
QString link(const std::string& name) {
    const QString escaped = QString::fromStdString(name).toHtmlEscaped();
    return QString("<a href=\"%1\">%1</a>").arg(escaped);
}
}  // namespace

struct DeviceSelectionWidget::Ui {
    DeviceSelectionWidget* q;
    CatalogueLoader loader;
    QStackedWidget* pages;
    QProgressBar* progress;
    QPushButton* cancelLoad;
    QCheckBox* showObsolete;
    QCheckBox* ascOnly;
    // Family, device, package, speed grade, condition: each fills the next.
    QComboBox* levels[5];
    QLineEdit* partName;
    QLabel* nameHint;
    QPushButton* useReplacement;
    AscLinkPanel* ascs;
    QLabel* validation;
    PartPropertiesView* properties;
    PartSearchBox* search;
    QString initialPart;
    std::string replacement;
    std::string chosen;
    // While the user types, the field keeps their text; it shows the part's
    // own spelling once the edit ends.
    bool typing = false;
    QString lastResolved;
    bool valid = false;
    QString message;

    explicit Ui(DeviceSelectionWidget* owner) : q(owner), loader(owner) {}
    TarnDeviceMngr* mngr() const { return TarnDeviceMngr::m_pMngr; }
    std::string pm() const { return levels[0]->currentData().toString().toStdString(); }

    void build();
    QWidget* buildLoadingPage();
    QWidget* buildChoicePage();
    void loadFinished(bool cancelled, const QString& error);
    void fillFrom(int level);
    StringList choicesOf(int level) const;
    bool applyFields(const std::string& pm, const std::string (&fields)[4]);
    bool choosePart(const std::string& part);
    void partChanged();
    void setChosen(const std::string& part);
    void revalidate();
    void nameEdited(const QString& typed);
    void nameFinished();
    void showHint(const QString& html, const std::string& replacementName);
};

void DeviceSelectionWidget::Ui::build() {
    pages = new QStackedWidget(q);
    pages->addWidget(buildLoadingPage());
    pages->addWidget(buildChoicePage());
    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pages);
    QObject::connect(
        &loader, &CatalogueLoader::progress, q,
        [this](int index, int count, const QString& family) {
            progress->setRange(0, count);
            progress->setValue(index - 1);
            progress->setFormat(
                DeviceSelectionWidget::tr("family %1 of %2: %3").arg(index).arg(count).arg(family));
        });
    QObject::connect(
        &loader, &CatalogueLoader::finished, q,
        [this](bool cancelled, const QString& error) { loadFinished(cancelled, error); });
}

QWidget* DeviceSelectionWidget::Ui::buildLoadingPage() {
    auto* page = new QWidget(q);
    auto* layout = new QVBoxLayout(page);
    auto* label = new QLabel(DeviceSelectionWidget::tr("Loading the device catalogue…"), page);
    progress = new QProgressBar(page);
    progress->setObjectName("loadProgress");
    progress->setAccessibleName(DeviceSelectionWidget::tr("Loading progress"));
    progress->setRange(0, 0);
    progress->setTextVisible(true);
    cancelLoad = new QPushButton(DeviceSelectionWidget::tr("&Cancel loading"), page);
    cancelLoad->setObjectName("cancelLoad");
    QObject::connect(cancelLoad, &QPushButton::clicked, q, [this] { q->cancelLoad(); });
    layout->addStretch();
    layout->addWidget(label);
    layout->addWidget(progress);
    layout->addWidget(cancelLoad, 0, Qt::AlignRight);
    layout->addStretch();
    return page;
}

QWidget* DeviceSelectionWidget::Ui::buildChoicePage() {
    using W = DeviceSelectionWidget;
    auto* page = new QWidget(q);
    auto* columns = new QHBoxLayout(page);
    auto* left = new QVBoxLayout;
    columns->addLayout(left, 1);

    showObsolete = new QCheckBox(W::tr("Show &obsolete parts"), page);
    showObsolete->setObjectName("showObsolete");
    ascOnly = new QCheckBox(W::tr("A&SC-capable parts only"), page);
    ascOnly->setObjectName("ascOnly");
    left->addWidget(showObsolete);
    left->addWidget(ascOnly);

    auto* form = new QFormLayout;
    const char* names[5] = {"family", "device", "package", "speed", "condition"};
    const QString labels[5] = {W::tr("&Family:"), W::tr("&Device:"), W::tr("&Package:"),
                               W::tr("S&peed grade:"), W::tr("Co&ndition:")};
    const QString accessible[5] = {W::tr("Family"), W::tr("Device"), W::tr("Package"),
                                   W::tr("Speed grade"), W::tr("Operating condition")};
    for (int level = 0; level < 5; ++level) {
        levels[level] = new QComboBox(page);
        levels[level]->setObjectName(names[level]);
        levels[level]->setAccessibleName(accessible[level]);
        form->addRow(labels[level], levels[level]);
        QObject::connect(levels[level], qOverload<int>(&QComboBox::activated), q,
                         [this, level] { fillFrom(level + 1); });
    }
    partName = new QLineEdit(page);
    partName->setObjectName("partName");
    partName->setAccessibleName(W::tr("Part name"));
    partName->setPlaceholderText(W::tr("Type or paste a part name"));
    form->addRow(W::tr("Part na&me:"), partName);
    left->addLayout(form);

    nameHint = new QLabel(page);
    nameHint->setObjectName("nameHint");
    nameHint->setWordWrap(true);
    nameHint->setTextInteractionFlags(Qt::TextBrowserInteraction);
    useReplacement = new QPushButton(page);
    useReplacement->setObjectName("useReplacement");
    useReplacement->hide();
    left->addWidget(nameHint);
    left->addWidget(useReplacement, 0, Qt::AlignLeft);

    ascs = new AscLinkPanel(page);
    left->addWidget(ascs);
    validation = new QLabel(page);
    validation->setObjectName("validation");
    validation->setWordWrap(true);
    validation->setAccessibleName(W::tr("Validation"));
    left->addWidget(validation);
    left->addStretch();

    auto* right = new QVBoxLayout;
    columns->addLayout(right, 1);
    search = new PartSearchBox(page);
    right->addWidget(search, 1);
    auto* propertiesLabel = new QLabel(W::tr("Propert&ies:"), page);
    properties = new PartPropertiesView(page);
    propertiesLabel->setBuddy(properties);
    right->addWidget(propertiesLabel);
    right->addWidget(properties, 2);

    auto refilter = [this] {
        search->setFilters(showObsolete->isChecked(), ascOnly->isChecked());
        fillFrom(0);
    };
    QObject::connect(showObsolete, &QCheckBox::toggled, q, refilter);
    QObject::connect(ascOnly, &QCheckBox::toggled, q, refilter);
    QObject::connect(partName, &QLineEdit::textEdited, q,
                     [this](const QString& typed) { nameEdited(typed); });
    QObject::connect(partName, &QLineEdit::editingFinished, q, [this] { nameFinished(); });
    QObject::connect(nameHint, &QLabel::linkActivated, q,
                     [this](const QString& name) { q->selectPart(name); });
    QObject::connect(useReplacement, &QPushButton::clicked, q,
                     [this] { q->selectPart(QString::fromStdString(replacement)); });
    QObject::connect(ascs, &AscLinkPanel::linksChanged, q, [this] { revalidate(); });
    QObject::connect(search, &PartSearchBox::partChosen, q,
                     [this](const QString& part) { q->selectPart(part); });
    return page;
}

void DeviceSelectionWidget::Ui::loadFinished(bool cancelled, const QString& error) {
    if (cancelled) {
        emit q->loadCancelled();
        return;
    }
    if (!error.isEmpty() || !mngr()) {
        progress->setFormat(error);
        emit q->loadFailed(error);
        return;
    }
    fillFrom(0);
    pages->setCurrentIndex(1);
    QString first = initialPart;
    if (first.isEmpty())
        first = QString::fromStdString(TarnDeviceMngr::getDefaultDevice());
    if (!first.isEmpty())
        q->selectPart(first);
    levels[0]->setFocus();
    emit q->loaded();
}

StringList DeviceSelectionWidget::Ui::choicesOf(int level) const {
    StringList out;
    const bool obsolete = showObsolete->isChecked();
    const bool asc = ascOnly->isChecked();
    TarnDeviceMngr& m = *mngr();
    switch (level) {
        case 0:
            m.getAllFamilies(out, obsolete, asc);
            break;
        case 1:
            m.getDevices(pm(), out, obsolete, asc);
            break;
        case 2:
            m.getPackages(pm(), text(levels[1]), out, obsolete, asc);
            break;
        case 3:
            m.getSpeeds(pm(), text(levels[1]), text(levels[2]), out, obsolete, asc);
            break;
        default:
            m.getOperations(pm(), text(levels[1]), text(levels[2]), text(levels[3]), out, obsolete,
                            asc);
    }
    return out;
}

// Refills the lists from `level` down, each keeping its choice where the
// new list still has it.
void DeviceSelectionWidget::Ui::fillFrom(int level) {
    if (!mngr())
        return;
    for (int i = level; i < 5; ++i) {
        QComboBox* box = levels[i];
        const QString previous = box->currentText();
        QSignalBlocker block(box);
        box->clear();
        for (const auto& choice : choicesOf(i)) {
            const QString name = QString::fromStdString(choice);
            box->addItem(name, i == 0
                                   ? QString::fromStdString(TarnDeviceMngr::baseFamilyToPm(choice))
                                   : QVariant());
        }
        const int kept = box->findText(previous);
        box->setCurrentIndex(kept >= 0 ? kept : 0);
    }
    partChanged();
}

bool DeviceSelectionWidget::Ui::applyFields(const std::string& pmCode,
                                            const std::string (&fields)[4]) {
    fillFrom(0);
    const int family = levels[0]->findData(QString::fromStdString(pmCode));
    if (family < 0)
        return false;
    levels[0]->setCurrentIndex(family);
    for (int level = 1; level < 5; ++level) {
        fillFrom(level);
        const int index = levels[level]->findText(QString::fromStdString(fields[level - 1]));
        if (index < 0)
            return false;
        levels[level]->setCurrentIndex(index);
    }
    return true;
}

bool DeviceSelectionWidget::Ui::choosePart(const std::string& part) {
    std::string pmCode;
    std::string fields[4];
    if (!mngr()->getNameByPart(part, pmCode, fields[0], fields[1], fields[2], fields[3]))
        return false;
    // A part the filters hide is shown by relaxing them, not refused.
    bool found = applyFields(pmCode, fields);
    if (!found && !showObsolete->isChecked()) {
        QSignalBlocker block(showObsolete);
        showObsolete->setChecked(true);
        found = applyFields(pmCode, fields);
    }
    if (!found && ascOnly->isChecked()) {
        QSignalBlocker block(ascOnly);
        ascOnly->setChecked(false);
        found = applyFields(pmCode, fields);
    }
    search->setFilters(showObsolete->isChecked(), ascOnly->isChecked());
    // An engineering sample has the fields of its production part, so the
    // name itself is the choice, not the one the fields build.
    if (found)
        setChosen(part);
    return found;
}

void DeviceSelectionWidget::Ui::partChanged() {
    std::string part;
    if (levels[4]->count() > 0)
        part = mngr()->getPartName(pm(), text(levels[1]), text(levels[2]), text(levels[3]),
                                   text(levels[4]));
    setChosen(part);
}

void DeviceSelectionWidget::Ui::setChosen(const std::string& part) {
    if (!typing)
        partName->setText(QString::fromStdString(part));
    if (part != chosen) {
        chosen = part;
        ascs->showPart(part);
    }
    revalidate();
}

void DeviceSelectionWidget::Ui::revalidate() {
    tarn::vyxpn::TarnDeviceObj device(chosen);
    for (const QString& chip : ascs->linkedChips())
        device.m_ascList.push_back(chip.toStdString());
    std::string why;
    const bool nowValid = !chosen.empty() && mngr()->isValid(device, why);
    message = nowValid         ? QString()
              : chosen.empty() ? DeviceSelectionWidget::tr("No part chosen")
                               : QString::fromStdString(why);
    validation->setText(nowValid ? DeviceSelectionWidget::tr("Valid choice") : message);
    validation->setStyleSheet(nowValid ? QString() : QStringLiteral("color: #b00020"));
    properties->showDevice(device);
    emit q->choiceChanged();
    if (nowValid != valid) {
        valid = nowValid;
        emit q->validityChanged(valid);
    }
}

// While typing, only names the indexes answer at once (exact or in upper
// case) select; the rest waits for the end of the edit.
void DeviceSelectionWidget::Ui::nameEdited(const QString& typed) {
    const std::string name = typed.trimmed().toStdString();
    const std::string upper = typed.trimmed().toUpper().toStdString();
    typing = true;
    if (mngr()->exists(name))
        choosePart(name);
    else if (mngr()->exists(upper))
        choosePart(upper);
    typing = false;
}

void DeviceSelectionWidget::Ui::nameFinished() {
    const QString typed = partName->text().trimmed();
    if (typed.isEmpty() || typed == lastResolved)
        return;
    if (q->selectPart(typed)) {
        partName->setText(QString::fromStdString(chosen));
        lastResolved = partName->text();
    }
}

void DeviceSelectionWidget::Ui::showHint(const QString& html, const std::string& replacementName) {
    nameHint->setText(html);
    replacement = replacementName;
    useReplacement->setVisible(!replacementName.empty());
    useReplacement->setText(
        DeviceSelectionWidget::tr("S&witch to %1").arg(QString::fromStdString(replacementName)));
}

DeviceSelectionWidget::DeviceSelectionWidget(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui>(this)) {
    m_ui->build();
}

DeviceSelectionWidget::~DeviceSelectionWidget() = default;

void DeviceSelectionWidget::load() {
    if (!m_ui->loader.isRunning() && m_ui->pages->currentIndex() == 0)
        m_ui->loader.start();
}

bool DeviceSelectionWidget::isLoading() const {
    return m_ui->loader.isRunning();
}

bool DeviceSelectionWidget::isLoaded() const {
    return m_ui->pages->currentIndex() == 1;
}

void DeviceSelectionWidget::cancelLoad() {
    m_ui->cancelLoad->setEnabled(false);
    m_ui->loader.cancel();
}

void DeviceSelectionWidget::setInitialPart(const QString& name) {
    m_ui->initialPart = name;
    if (isLoaded())
        selectPart(name);
}

QString DeviceSelectionWidget::part() const {
    return QString::fromStdString(m_ui->chosen);
}

QStringList DeviceSelectionWidget::linkedAscs() const {
    return m_ui->ascs->linkedChips();
}

void DeviceSelectionWidget::setLinkedAscs(const QStringList& chips) {
    m_ui->ascs->setLinkedChips(chips);
    m_ui->revalidate();
}

bool DeviceSelectionWidget::isValidChoice() const {
    return m_ui->valid;
}

QString DeviceSelectionWidget::validationMessage() const {
    return m_ui->message;
}

bool DeviceSelectionWidget::selectPart(const QString& name) {
    if (!isLoaded())
        return false;
    m_ui->lastResolved = name.trimmed();
    const PartNameResolution found = resolvePartName(*m_ui->mngr(), name.toStdString());
    const QString typed = name.trimmed().toHtmlEscaped();
    switch (found.kind) {
        case PartNameResolution::Kind::Known:
            m_ui->showHint(QString(), {});
            return m_ui->choosePart(found.part);
        case PartNameResolution::Kind::NotRecommended:
            m_ui->showHint(tr("%1 is not recommended for new designs; use %2 instead.")
                               .arg(QString::fromStdString(found.part), link(found.replacement)),
                           found.replacement);
            return m_ui->choosePart(found.part);
        case PartNameResolution::Kind::Renamed:
            m_ui->showHint(tr("%1 is an old name; the part is now %2.")
                               .arg(QString::fromStdString(found.part), link(found.replacement)),
                           found.replacement);
            return false;
        case PartNameResolution::Kind::Unknown:
            break;
    }
    QStringList links;
    for (const auto& suggestion : found.suggestions)
        links << link(suggestion);
    m_ui->showHint(links.isEmpty()
                       ? tr("Unknown part %1.").arg(typed)
                       : tr("Unknown part %1. Did you mean %2?").arg(typed, links.join(", ")),
                   {});
    return false;
}

void DeviceSelectionWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    load();
}

}  // namespace devctrl

// SPDX-License-Identifier: MIT
#include "visualization/sourceselector/SourceSelectorEx.h"

#include "environment/tessel/SubroutineDeclaration.h"
#include "environment/tessel/TranslationUnit.h"
#include "environment/tessel/TypeDeclaration.h"
#include "environment/tessel/VariableDeclaration.h"
#include "visualization/sourceselector/SourceSelector.h"
#include "visualization/sourceselector/SubroutineCollector.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace Kova::GUI {

namespace {

using Tessel::SubroutineDeclaration;
using Tessel::TesselBase;

/// In characters: narrower, the list would cut most names.
constexpr int readableNameLength = 16;

bool canGoUp(const TesselBase* root) {
    return root != nullptr && dynamic_cast<const Tessel::TranslationUnit*>(root) == nullptr &&
           root->getParent() != nullptr;
}

} // namespace

SourceSelectorEx::SourceSelectorEx(SourceSelector* selector, QWidget* parent)
    : QWidget(parent),
      m_selector(selector != nullptr ? selector : new SourceSelector),
      m_list(new QComboBox(this)),
      m_configurationButton(new QToolButton(this)),
      m_upButton(new QToolButton(this)) {
    m_selector->setParent(this);
    createMenu();
    createButtons();
    m_list->setEnabled(false);
    m_list->setMinimumContentsLength(readableNameLength);
    connect(m_list, qOverload<int>(&QComboBox::currentIndexChanged), this, &SourceSelectorEx::subroutineSelected);
    // The current one chosen once more.
    connect(m_list, qOverload<int>(&QComboBox::activated), this, &SourceSelectorEx::subroutineSelected);
    arrange();
}

void SourceSelectorEx::createMenu() {
    const Shared::ProgramTextBuilder::Options& options = m_selector->getOptions();
    m_hidePrototypes = createOption(tr("Hide prototypes"), options.hidePrototypes);
    m_hideTypedefs = createOption(tr("Hide typedefs"), options.hideTypedefs);
    m_hideVariables = createOption(tr("Hide variables"), options.hideVariables);
    m_hideExternalDeclarations = createOption(tr("Hide external declarations"), options.hideExternalDeclarations);
    connect(m_hidePrototypes, &QAction::triggered, this, &SourceSelectorEx::hidePrototypesChanged);
    auto* menu = new QMenu(m_configurationButton);
    for (QAction* option : {m_hidePrototypes, m_hideTypedefs, m_hideVariables, m_hideExternalDeclarations}) {
        if (option != m_hidePrototypes)
            connect(option, &QAction::triggered, this, &SourceSelectorEx::updateOptions);
        menu->addAction(option);
    }
    m_configurationButton->setMenu(menu);
}

QAction* SourceSelectorEx::createOption(const QString& text, bool checked) {
    auto* option = new QAction(text, this);
    option->setCheckable(true);
    option->setChecked(checked);
    return option;
}

void SourceSelectorEx::createButtons() {
    m_configurationButton->setIcon(QIcon(":/visualization/images/configuration.png"));
    m_configurationButton->setPopupMode(QToolButton::InstantPopup);
    m_configurationButton->setToolTip(tr("What the text hides"));
    m_configurationButton->setEnabled(false);
    m_upButton->setIcon(QIcon(":/visualization/images/arrow_up.png"));
    m_upButton->setToolTip(tr("Show what is around this text"));
    m_upButton->setEnabled(false);
    connect(m_upButton, &QToolButton::clicked, this, &SourceSelectorEx::goUp);
}

void SourceSelectorEx::arrange() {
    auto* row = new QHBoxLayout;
    row->addWidget(m_list, 1);
    row->addWidget(m_configurationButton);
    row->addWidget(m_upButton);
    row->addStretch(3);
    auto* column = new QVBoxLayout(this);
    column->setMargin(1);
    column->setSpacing(1);
    column->addLayout(row);
    column->addWidget(m_selector);
}

void SourceSelectorEx::setRootNode(TesselBase* node) {
    m_selector->setRootNode(node);
    takeRoot();
}

void SourceSelectorEx::forgetRootNode() {
    m_selector->forgetRootNode();
    takeRoot();
}

void SourceSelectorEx::takeRoot() {
    m_root = m_selector->getRootNode();
    fillSubroutineList();
    m_list->setEnabled(m_root != nullptr);
    m_configurationButton->setEnabled(m_root != nullptr);
    m_upButton->setEnabled(canGoUp(m_root));
}

void SourceSelectorEx::fillSubroutineList() {
    m_list->clear();
    if (m_root == nullptr)
        return;
    SubroutineCollector collector;
    m_root->accept(collector);
    for (SubroutineDeclaration* subroutine : collector.getSubroutines()) {
        if (m_hidePrototypes->isChecked() && !subroutine->hasImplementation())
            continue;
        // With its data at once: the first entry is selected as soon as it is there.
        m_list->addItem(QString::fromUtf8(subroutine->getName().c_str()),
                        QVariant::fromValue(static_cast<void*>(subroutine)));
    }
}

void SourceSelectorEx::subroutineSelected(int index) {
    if (index != -1)
        m_selector->ensureNodeVisible(static_cast<SubroutineDeclaration*>(m_list->itemData(index).value<void*>()));
}

void SourceSelectorEx::updateOptions() {
    Shared::ProgramTextBuilder::Options options;
    options.hidePrototypes = m_hidePrototypes->isChecked();
    options.hideTypedefs = m_hideTypedefs->isChecked();
    options.hideVariables = m_hideVariables->isChecked();
    options.hideExternalDeclarations = m_hideExternalDeclarations->isChecked();
    m_selector->setOptions(options);
}

void SourceSelectorEx::hidePrototypesChanged() {
    updateOptions();
    fillSubroutineList();
}

void SourceSelectorEx::goUp() {
    if (m_root == nullptr || m_root->getParent() == nullptr)
        return;
    TesselBase* former = m_root;
    setRootNode(former->getParent());
    m_selector->ensureNodeVisible(former);
}

void SourceSelectorEx::ensureNodeVisible(const TesselBase* node) {
    if (dynamic_cast<const Tessel::VariableDeclaration*>(node) != nullptr) {
        m_hideVariables->setChecked(false);
        m_hideExternalDeclarations->setChecked(false);
    } else if (dynamic_cast<const Tessel::TypeDeclaration*>(node) != nullptr) {
        m_hideTypedefs->setChecked(false);
    } else if (const auto* subroutine = dynamic_cast<const SubroutineDeclaration*>(node);
               subroutine != nullptr && !subroutine->hasImplementation()) {
        m_hidePrototypes->setChecked(false);
    }
    updateOptions();
}

} // namespace Kova::GUI

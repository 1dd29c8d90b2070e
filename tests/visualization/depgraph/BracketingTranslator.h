// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// While it lives, translates what one class has to say by putting it into angle brackets.
class BracketingTranslator : public QTranslator {
public:
    /// @param context name of the class with its namespaces.
    explicit BracketingTranslator(const char* context) : m_context(context) {
        QCoreApplication::installTranslator(this);
    }
    ~BracketingTranslator() override { QCoreApplication::removeTranslator(this); }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                                    int /*number*/) const override {
        return m_context == context ? QString("<%1>").arg(text) : QString();
    }

private:
    QString m_context;
};

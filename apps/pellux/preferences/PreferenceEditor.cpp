#include "preferences/PreferenceEditor.h"

#include "runtime/Guarded.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

namespace Pellux {
namespace {

void showColor(QPushButton& button, const QString& text)
{
    QPixmap swatch(24, 16);
    swatch.fill(QColor(text));
    button.setIcon(swatch);
    button.setText(text);
}

PreferenceEditor colorEditor(const Preference& preference, QWidget* parent)
{
    auto* const button = new QPushButton(parent);
    QObject::connect(button, &QPushButton::clicked, button, [button, label = preference.label] {
        Guarded([&] {
            const QColor chosen = QColorDialog::getColor(QColor(button->text()), button, label);
            if (chosen.isValid())
                showColor(*button, chosen.name());
        });
    });
    return {button, [button] { return button->text(); },
            [button](const QString& text) { showColor(*button, text); }};
}

PreferenceEditor switchEditor(QWidget* parent)
{
    auto* const box = new QCheckBox(parent);
    const QString yes = QStringLiteral("true");
    return {box, [box, yes] { return box->isChecked() ? yes : QStringLiteral("false"); },
            [box, yes](const QString& text) { box->setChecked(text == yes); }};
}

PreferenceEditor integerEditor(const Preference& preference, QWidget* parent)
{
    auto* const box = new QSpinBox(parent);
    box->setRange(static_cast<int>(preference.minimum), static_cast<int>(preference.maximum));
    return {box, [box] { return QString::number(box->value()); },
            [box](const QString& text) { box->setValue(text.toInt()); }};
}

PreferenceEditor numberEditor(const Preference& preference, QWidget* parent)
{
    auto* const box = new QDoubleSpinBox(parent);
    box->setDecimals(6);
    box->setRange(preference.minimum, preference.maximum);
    return {box,
            [box] { return QString::number(box->value(), 'g', QLocale::FloatingPointShortest); },
            [box](const QString& text) { box->setValue(text.toDouble()); }};
}

PreferenceEditor choiceEditor(const Preference& preference, QWidget* parent)
{
    auto* const box = new QComboBox(parent);
    box->addItems(preference.choices);
    return {box, [box] { return box->currentText(); },
            [box](const QString& text) { box->setCurrentText(text); }};
}

PreferenceEditor folderEditor(const Preference& preference, QWidget* parent)
{
    auto* const line = new QWidget(parent);
    auto* const field = new QLineEdit(line);
    auto* const button = new QToolButton(line);
    button->setText(QStringLiteral("\u2026"));
    button->setAccessibleName(preference.label);
    auto* const layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    layout->addWidget(button);
    line->setFocusProxy(field);
    field->setAccessibleName(preference.label);
    QObject::connect(button, &QToolButton::clicked, field, [field, label = preference.label] {
        Guarded([&] {
            const QString chosen = QFileDialog::getExistingDirectory(field, label, field->text());
            if (!chosen.isEmpty())
                field->setText(chosen);
        });
    });
    return {line, [field] { return field->text(); },
            [field](const QString& text) { field->setText(text); }};
}

PreferenceEditor editorFor(const Preference& preference, QWidget* parent)
{
    switch (preference.kind) {
    case PreferenceKind::Color:
        return colorEditor(preference, parent);
    case PreferenceKind::Switch:
        return switchEditor(parent);
    case PreferenceKind::Integer:
        return integerEditor(preference, parent);
    case PreferenceKind::Number:
        return numberEditor(preference, parent);
    case PreferenceKind::Choice:
        return choiceEditor(preference, parent);
    case PreferenceKind::Folder:
        break;
    }
    return folderEditor(preference, parent);
}

} // namespace

PreferenceEditor MakePreferenceEditor(const Preference& preference, QWidget* parent)
{
    PreferenceEditor editor = editorFor(preference, parent);
    editor.widget->setAccessibleName(preference.label);
    editor.widget->setObjectName(preference.section + QLatin1Char('.') + preference.key);
    editor.set(preference.defaultText);
    return editor;
}

} // namespace Pellux

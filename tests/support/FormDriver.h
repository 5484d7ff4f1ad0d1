#pragma once

#include "support/NoticeScript.h"
#include "support/Test.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace xa518::prueba {

/// A widget of a form by its name.
template <typename Control = QWidget>
[[nodiscard]] Control& De(const QWidget& forma, QAnyStringView nombre) {
    auto* control = forma.findChild<Control*>(nombre.toString());
    if (!control)
        throw std::runtime_error("no control " + nombre.toString().toStdString());
    return *control;
}

/// Shows a form and waits until its keys arrive and what it reads is there.
void Muestra(QWidget& forma);

/// Waits until no window of the program has work going on beside its thread.
void EsperaTrabajos();

inline void Clic(const QWidget& forma, QAnyStringView control) {
    QWidget& donde = De(forma, control);
    QTest::mouseClick(&donde, Qt::LeftButton, {}, {8, donde.height() / 2});
    EsperaTrabajos();
}

/// Runs once the named form, or any, has opened over the others, and closes it afterwards if it still stands. The test
/// fails when none opens.
void AlAbrir(QAnyStringView forma, std::function<void(QWidget&)> trabajo);

/// At the end of a test: nothing may still wait for a form.
void CompruebaAperturas();

} // namespace xa518::prueba

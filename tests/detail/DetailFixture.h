#pragma once

#include "Printers.h"
#include "data/Process.h"
#include "platform/Clock.h"
#include "support/NoticeScript.h"
#include "support/TemporaryBase.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

#include <functional>

namespace xa518::prueba {

const QString kEmpresa = QStringLiteral("20500000008");

/// A widget of a form by its name.
template <typename Control = QWidget>
[[nodiscard]] Control& De(QWidget& forma, const char* nombre) {
    auto* control = forma.findChild<Control*>(QString::fromLatin1(nombre));
    if (!control)
        throw std::runtime_error(std::string("no ") + nombre);
    return *control;
}

/// An open declaration in which clients are entered by hand.
class DetailTest : public testing::Test {
  protected:
    explicit DetailTest(const QString& periodo = QStringLiteral("202610"));

    /// Shows a form and waits until its keys arrive.
    static void Muestra(QWidget& forma);
    /// Types into whatever has the focus; "\r" is Enter, "\b" Backspace.
    void Teclea(const QString& teclas);
    void Pulsa(Qt::Key tecla, Qt::KeyboardModifiers con = Qt::NoModifier);
    /// Presses a button by its mnemonic, and waits until it has done its work.
    void Alt(Qt::Key letra);
    /// Runs once the named form has opened over the others.
    void AlAbrir(const QString& forma, std::function<void(QWidget&)> trabajo);
    [[nodiscard]] static QString Foco();

    BaseTemporal m_base;
    RelojFijo m_reloj{QDateTime(QDate(2026, 10, 20), QTime(10, 0))};
    Proceso m_proceso{m_reloj};
    AvisosDePrueba m_avisos;
    int m_teclas = 0;
};

} // namespace xa518::prueba

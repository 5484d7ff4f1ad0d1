#pragma once

#include "Printers.h"
#include "launcher/FrmConsola.h"
#include "launcher/RowTable.h"
#include "platform/Clock.h"
#include "support/FormDriver.h"
#include "support/NoticeScript.h"
#include "support/TemporaryBase.h"

#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace xa518::prueba {

inline const QString kRuc = QStringLiteral("20990518018");

/// An installation with the sample company, and the launcher's window over it.
class Ventana : public testing::Test {
  protected:
    /// The opening made the installation the current folder.
    ~Ventana() override { QDir::setCurrent(QDir::rootPath()); }

    void Instala() { (void)Sesion(entorno).Instala(true); }
    /// Opens the window and waits until its start is over.
    void Abre(VistaDeInforme vista = {}) {
        ventana = std::make_unique<FrmConsola>(entorno, avisos, programas, std::move(vista));
        Muestra(*ventana);
        QCoreApplication::processEvents();
    }
    /// Goes to another window and comes back.
    void VaYVuelve() {
        QWidget otra;
        Muestra(otra);
        Muestra(*ventana);
    }

    template <typename T>
    [[nodiscard]] T& Control(const char* nombre) const {
        return De<T>(*ventana, nombre);
    }
    void Pulsa(const char* boton) const { Clic(*ventana, boton); }
    void Alt(Qt::Key letra) const {
        QTest::keyClick(ventana.get(), letra, Qt::AltModifier);
        QTest::qWait(120); // a mnemonic holds the button down for a tenth of a second
    }

    [[nodiscard]] TablaFilas& Tabla(const char* nombre) const { return Control<TablaFilas>(nombre); }
    /// The cells of a row, joined by "|".
    [[nodiscard]] static QString Fila(const TablaFilas& tabla, int fila) {
        QStringList celdas;
        for (int columna = 0; columna < tabla.model()->columnCount(); ++columna)
            celdas.append(tabla.model()->index(fila, columna).data().toString());
        return celdas.join(u'|');
    }
    [[nodiscard]] std::unique_ptr<Base> LaBase() const { return Base::Abre(RutaBase()); }
    [[nodiscard]] QString RutaBase() const { return carpeta + QStringLiteral("/XA000.DB"); }
    void Graba(const QString& periodo, int estado) const { AgregaCabecera(*LaBase(), kRuc, periodo, estado); }
    [[nodiscard]] QString Aviso() const {
        return Control<QFrame>("FraAviso").isVisible() ? Control<QLabel>("LblAviso").text() : QString();
    }

    QTemporaryDir raiz;
    QString carpeta{raiz.filePath(QStringLiteral("xa518"))};
    QString programas{raiz.filePath(QStringLiteral("bin"))};
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    EntornoConsola entorno{reloj, raiz.filePath(QStringLiteral("XA000.INI")), carpeta, QStringLiteral("CONTADOR")};
    AvisosDePrueba avisos;
    std::unique_ptr<FrmConsola> ventana;
};

inline const QString kOcupada =
    QStringLiteral("La base de datos está en uso por otro programa, o es de sólo lectura. Espere a que el otro programa"
                   " termine y vuelva a intentarlo.");

} // namespace xa518::prueba

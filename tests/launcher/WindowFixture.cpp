#include "launcher/WindowFixture.h"

#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QTest>

namespace xa518::prueba {

using namespace Qt::StringLiterals;

Ventana::~Ventana() {
    QDir::setCurrent(QDir::rootPath()); // the opening made the installation the current folder
}

void Ventana::Abre(VistaDeInforme vista) {
    ventana = std::make_unique<FrmConsola>(entorno, avisos, programas, std::move(vista));
    Muestra(*ventana);
    QCoreApplication::processEvents();
}

void Ventana::VaYVuelve() {
    QWidget otra;
    Muestra(otra);
    Muestra(*ventana);
}

void Ventana::Alt(Qt::Key letra) const {
    QTest::keyClick(ventana.get(), letra, Qt::AltModifier);
    QTest::qWait(120); // a mnemonic holds the button down for a tenth of a second
}

QString Ventana::Fila(const TablaFilas& tabla, int fila) {
    QStringList celdas;
    for (int columna = 0; columna < tabla.model()->columnCount(); ++columna)
        celdas.append(tabla.model()->index(fila, columna).data().toString());
    return celdas.join(u'|');
}

QString Ventana::Aviso() const {
    return Control<QFrame>("FraAviso").isVisible() ? Control<QLabel>("LblAviso").text() : QString();
}

} // namespace xa518::prueba

#include "launcher/WindowFixture.h"

#include "data/RecordChecksum.h"

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

void Ventana::Graba(const QString& periodo, int estado) const {
    const auto base = LaBase();
    Registro cabecera(base->Describe(u"CAB"_s));
    cabecera.Pon(u"Doc_id_d", kRuc).Pon(u"tip_doc_d", 6).Pon(u"periodo", periodo).Pon(u"Formulario", u"0518"_s);
    cabecera.Pon(u"estado", estado).Pon(u"rectifica", u"0"_s).Pon(u"fec_pro", u"20/11/2026"_s);
    AgregaConChecksum(*base, cabecera);
}

QString Ventana::Aviso() const {
    return Control<QFrame>("FraAviso").isVisible() ? Control<QLabel>("LblAviso").text() : QString();
}

} // namespace xa518::prueba

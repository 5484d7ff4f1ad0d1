#include "form518/WorkOrder.h"
#include "form518/WorkVouchers.h"
#include "import/ImportFile.h"
#include "import/ImportFixture.h"
#include "import/UndoMessages.h"
#include "values/Progress.h"

namespace {

class ImportUndo : public testing::Test {
  protected:
    ImportUndo() { m_escenario.opciones.seDeshace = true; }

    [[nodiscard]] Base& LaBase() { return *m_escenario.base; }
    /// Every row of the work tables with its number.
    [[nodiscard]] QStringList Foto() {
        QStringList filas;
        for (const TablaDeTrabajo& tabla : TablasPorDependencia())
            filas += m_escenario.base.Filas(
                u"SELECT %1, %2.* FROM %2 ORDER BY %1"_s.arg(LaBase().NumeroDeFila(tabla.nombre), tabla.nombre));
        return filas;
    }
    [[nodiscard]] std::optional<CorridaTrabajo> Ultima() { return CorridasTrabajo(LaBase()).Ultima(); }
    void DeshaceUltima() {
        SinAvance nadie;
        const std::optional<CorridaTrabajo> ultima = Ultima();
        ASSERT_TRUE(ultima);
        EXPECT_TRUE(VueltaAtras(LaBase()).Deshace(ultima->numero, nadie));
    }
    [[nodiscard]] static QString Linea(int numero) {
        return LineaDe({{Campo::NumeroPercepcion, QString::number(numero)}});
    }

    Escenario m_escenario;
};

TEST_F(ImportUndo, EachRunIsNotedAndTakenBack) {
    m_escenario.Importa(QStringList{Linea(1)});
    const QStringList antes = Foto();
    // A company comes, the person's voucher gets a second payment voucher, a line is refused.
    const ResultadoImportacion resultado = m_escenario.Importa(
        QStringList{LineaDe(Empresa()), LineaDe({{Campo::NumeroPercepcion, u"1"_s}, {Campo::NumeroCp, u"78"_s}}),
                    LineaDe({{Campo::TipoDoc, u"9"_s}})});
    EXPECT_EQ(resultado.rechazados, 1);
    const std::optional<CorridaTrabajo> corrida = Ultima();
    ASSERT_TRUE(corrida);
    EXPECT_EQ(corrida->numero, 2);
    EXPECT_EQ(corrida->fin, FinDeCorrida::Completa);
    EXPECT_EQ(corrida->transferidos, 2);
    EXPECT_EQ(corrida->rechazados, 1);
    EXPECT_EQ(corrida->archivo.nombre, resultado.archivo);
    EXPECT_EQ(corrida->archivo.huella, HuellaDeArchivo(m_escenario.RutaArchivo()));
    EXPECT_TRUE(CorridasTrabajo(LaBase()).HayDeTamanio(QFileInfo(m_escenario.RutaArchivo()).size()));
    DeshaceUltima();
    EXPECT_EQ(Foto(), antes);
    DeshaceUltima();
    EXPECT_EQ(Foto(), QStringList());
}

TEST_F(ImportUndo, WhatAStoppedRunKeptGoesToo) {
    m_escenario.Importa(QStringList{Linea(60'000)});
    const QStringList antes = Foto();
    m_escenario.Escribe(Muchas(30'000));
    EXPECT_EQ(m_escenario.Corre([](int linea) { return linea < 12'000; }).fin, FinImportacion::Cancelada);
    EXPECT_EQ(Ultima()->fin, FinDeCorrida::Cancelada);
    EXPECT_EQ(Ultima()->transferidos, 12'000);
    DeshaceUltima();
    EXPECT_EQ(Foto(), antes);
    // A file that changes under the run ends it; what was written stays.
    m_escenario.Escribe(Muchas(30'000));
    const auto encoge = [this](int linea) {
        if (linea == 12'000)
            QFile::resize(m_escenario.RutaArchivo(), 100);
        return true;
    };
    EXPECT_EQ(m_escenario.Corre(encoge).fin, FinImportacion::Fallida);
    EXPECT_EQ(Ultima()->fin, FinDeCorrida::Fallida);
    EXPECT_GE(*Ultima()->transferidos, 12'000);
    DeshaceUltima();
    EXPECT_EQ(Foto(), antes);
}

TEST_F(ImportUndo, ARunWithoutRowsLeavesNone) {
    m_escenario.Importa(QStringList{LineaDe({{Campo::TipoDoc, u"9"_s}})});
    EXPECT_FALSE(Ultima());
    m_escenario.opciones = {.prueba = true, .planilla = nullptr, .seDeshace = false};
    m_escenario.Importa(QStringList{Linea(1)});
    EXPECT_FALSE(Ultima());
    m_escenario.opciones = {};
    m_escenario.Importa(QStringList{Linea(1)}); // as the batch tool does
    EXPECT_FALSE(Ultima());
}

TEST_F(ImportUndo, TheQuestionTellsWhatGoes) {
    m_escenario.Importa(QStringList{Linea(1), Linea(2)});
    SinAvance nadie;
    EXPECT_EQ(PreguntaPorDeshacer(*VueltaAtras(LaBase()).Mira(nadie)).texto,
              u"Última importación: 051820990518018202610.TXT, 21/11/2026 10:00, usuario  (líneas: 2 transferidas y 0"
              " rechazadas).\n\nAl deshacerla se van 1 cliente, 2 comprobantes y 2 comprobantes de pago, con 201.00 de"
              " monto cobrado y %1 de percepción. Los demás clientes vuelven a los totales que tenían.\n\n¿Desea"
              " deshacerla?"_s.arg(m_escenario.base.Filas(u"SELECT mto_imp_p FROM TMPF518PCAB"_s).join(u'|')));
    ComprobantesTrabajo(LaBase()).Elimina(
        {.cliente = {CodigoDocumento(1), u"45678901"_s}, .serie = u"0001"_s, .numero = u"00000002"_s});
    const Mensaje conManos = PreguntaPorDeshacer(*VueltaAtras(LaBase()).Mira(nadie));
    EXPECT_EQ(conManos.icono, Icono::Exclamacion);
    EXPECT_TRUE(conManos.texto.contains(u"Filas cambiadas a mano desde entonces:\n• eliminadas: 2; no volverán\n"_s))
        << conManos.texto.toStdString();
    EXPECT_EQ(
        PreguntaPorRepetida({.numero = 1,
                             .archivo = {.nombre = u"A.TXT"_s, .huella = {}, .bytes = 0},
                             .hora = QDateTime(QDate(2026, 11, 22), QTime(8, 51)),
                             .usuario = u"ANA"_s,
                             .fin = std::nullopt,
                             .transferidos = std::nullopt,
                             .rechazados = std::nullopt})
            .texto,
        u"Este mismo archivo ya se importó en esta declaración: A.TXT, 22/11/2026 08:51, usuario ANA (no llegó a su"
        " fin).\n¿Desea importarlo otra vez?"_s);
}

} // namespace

#include "form518/LastDelete.h"
#include "form518/RunUndo.h"
#include "form518/WorkAdditions.h"
#include "form518/WorkOrder.h"
#include "form518/WorkTables.h"

#include "data/Transaction.h"
#include "support/BaseFixture.h"
#include "values/Progress.h"

#include <functional>

namespace {

const ClaveCliente kAntiguo{CodigoDocumento(6), u"20444123450"_s};
const ClaveCliente kImportado{CodigoDocumento(6), u"20555123459"_s};

ClaveComprobante Comprobante(const ClaveCliente& cliente, const QString& numero, const QString& tipo = {}) {
    return {.cliente = cliente, .serie = u"0001"_s, .numero = numero, .tipCp = tipo};
}

ClavePago Pago(const ClaveComprobante& comprobante, const QString& numero) {
    return {.comprobante = comprobante, .tipo = u"01"_s, .serie = u"F001"_s, .numero = numero};
}

CamposComprobante Campos(const QString& base, const QString& percepcion) {
    return {.cpFact = u"1"_s,
            .listaClie = u"0"_s,
            .medPago = u"9"_s,
            .fecha = u"15/10/2026"_s,
            .base = MontoEscrito(base),
            .percepcion = Importe::Lee(percepcion),
            .tasa = u"2.00"_s};
}

class WorkUndoTest : public BaseDePrueba {
  protected:
    /// Every row of the three work tables with its number.
    [[nodiscard]] QStringList Foto() {
        QStringList filas;
        const OrdenDeTrabajo orden(*m_base);
        for (const TablaDeTrabajo& tabla : TablasPorDependencia()) {
            QStringList columnas{orden.Columna()};
            for (const Columna& columna : m_base->Describe(tabla.nombre).columnas)
                columnas.append(columna.nombre);
            filas += m_base.Filas(
                u"SELECT %1 FROM %2 ORDER BY %3"_s.arg(columnas.join(u", "_s), tabla.nombre, orden.De(tabla.nombre)));
        }
        return filas;
    }
    void Registra(const ClaveComprobante& clave, const QString& base, const QString& percepcion) {
        ComprobantesTrabajo(*m_base).Agrega(clave, Campos(base, percepcion));
        if (clave.tipCp.isEmpty())
            PagosTrabajo(*m_base).Agrega(Pago(clave, clave.numero), u"10/10/2026"_s, MontoEscrito(base));
    }
    /// A client by hand with two vouchers.
    void RegistraAntiguo() {
        Registra(Comprobante(kAntiguo, u"00000001"_s), u"100.50"_s, u"2.01"_s);
        Registra(Comprobante(kAntiguo, u"00000002"_s, u"12"_s), u"40.00"_s, u"0.80"_s);
        ClientesTrabajo(*m_base).Agrega(
            kAntiguo, {.razon = u"ANTIGUA S.A."_s},
            {.ctdDocs = 2, .base = Importe::Valor(u"140.50"), .percepcion = Importe::Valor(u"2.81")});
    }
    /// What an import does: a client, a voucher of each client, a payment voucher under a voucher that was there.
    int Importa(const QString& numero, bool termina = true) {
        Transaccion transaccion = m_base->Comienza();
        const int corrida = CorridasTrabajo(*m_base).Empieza({u"A.TXT"_s, u"huella "_s + numero, 7}, u"ANA"_s,
                                                             QDateTime(QDate(2026, 11, 22), QTime(8, 51)));
        AltasTrabajo altas(*m_base);
        altas.Empieza();
        if (!altas.Existe(kImportado))
            altas.Agrega(kImportado, {.razon = u"IMPORTADA S.A."_s}, 1);
        for (const ClaveCliente& cliente : {kImportado, kAntiguo}) {
            altas.Agrega(Comprobante(cliente, numero), Campos(u"10.00"_s, u"0.20"_s), 1);
            altas.Agrega({.clave = Pago(Comprobante(cliente, numero), numero),
                          .fecha = u"10/10/2026"_s,
                          .monto = MontoEscrito(u"10.00"_s)},
                         1);
        }
        altas.Agrega({.clave = Pago(Comprobante(kAntiguo, u"00000001"_s), numero),
                      .fecha = u"10/10/2026"_s,
                      .monto = MontoEscrito(u"5.00"_s)},
                     2);
        EXPECT_TRUE(altas.Escribe().isEmpty());
        if (termina)
            CorridasTrabajo(*m_base).Termina(corrida, FinDeCorrida::Completa, 3, 1);
        transaccion.Confirma();
        if (termina)
            TablasTrabajo(*m_base).CalculaTotales();
        return corrida;
    }
    [[nodiscard]] std::optional<LoQueSeIria> Mira() {
        SinAvance nadie;
        return VueltaAtras(*m_base).Mira(nadie);
    }
    [[nodiscard]] bool Deshace(int corrida) {
        SinAvance nadie;
        return VueltaAtras(*m_base).Deshace(corrida, nadie);
    }
    /// What `Mira` tells that was done by hand: changed, hung on, deleted.
    [[nodiscard]] QList<qint64> Manos() {
        const std::optional<LoQueSeIria> seIria = Mira();
        return seIria ? QList<qint64>{seIria->modificadas, seIria->colgadas, seIria->eliminadas} : QList<qint64>();
    }
    [[nodiscard]] QString Totales(const ClaveCliente& cliente) {
        return Lista(u"SELECT ctd_docs & ' ' & mto_base_p & ' ' & mto_imp_p FROM TMPF518PCAB WHERE num_doc_per = ?"_s,
                     {cliente.numero});
    }
};

TEST_F(WorkUndoTest, RunsAreUndoneTheLastOneFirst) {
    RegistraAntiguo();
    const QStringList sinNada = Foto();
    const int primera = Importa(u"00000010"_s);
    const QStringList conUna = Foto();
    const int segunda = Importa(u"00000011"_s);
    const std::optional<LoQueSeIria> seIria = Mira();
    ASSERT_TRUE(seIria);
    EXPECT_EQ(seIria->corrida.numero, segunda);
    EXPECT_EQ(seIria->corrida.transferidos, 3);
    EXPECT_EQ(seIria->corrida.hora, QDateTime(QDate(2026, 11, 22), QTime(8, 51)));
    EXPECT_EQ(seIria->clientes, 0);
    EXPECT_EQ(seIria->comprobantes, 2);
    EXPECT_EQ(seIria->pagos, 3);
    EXPECT_EQ(seIria->base, Importe::Valor(u"20"));
    EXPECT_EQ(seIria->percepcion, Importe::Valor(u"0.4"));
    EXPECT_FALSE(seIria->HuboManos());
    EXPECT_EQ(CorridasTrabajo(*m_base).DeHuella(u"huella 00000010"_s)->numero, primera);
    EXPECT_FALSE(Deshace(primera));
    EXPECT_TRUE(Deshace(segunda));
    EXPECT_EQ(Foto(), conUna);
    EXPECT_TRUE(Deshace(primera));
    EXPECT_EQ(Foto(), sinNada);
    EXPECT_FALSE(Mira());
    EXPECT_EQ(Lista(u"SELECT corrida FROM TMPF518PREVIO"_s), QString());
}

TEST_F(WorkUndoTest, WhatWasDoneByHandSinceIsTold) {
    RegistraAntiguo();
    const int corrida = Importa(u"00000010"_s);
    EXPECT_EQ(Manos(), QList<qint64>({0, 0, 0}));
    ComprobantesTrabajo comprobantes(*m_base);
    comprobantes.Modifica(Comprobante(kImportado, u"00000010"_s), Campos(u"10.00"_s, u"0.20"_s));
    ClientesTrabajo(*m_base).EscribeTotales(kImportado,
                                            {.ctdDocs = 1, .base = Importe::Valor(u"10"), .percepcion = {}});
    EXPECT_EQ(Manos(), QList<qint64>({0, 0, 0})); // opened and left
    comprobantes.Modifica(Comprobante(kImportado, u"00000010"_s), Campos(u"11.00"_s, u"0.22"_s));
    comprobantes.Modifica(Comprobante(kImportado, u"00000010"_s), Campos(u"12.00"_s, u"0.24"_s));
    ClientesTrabajo(*m_base).Modifica(kImportado, {.razon = u"OTRA S.A."_s}, {});
    PagosTrabajo(*m_base).Modifica(Pago(Comprobante(kAntiguo, u"00000001"_s), u"00000010"_s), u"11/10/2026"_s,
                                   MontoEscrito(u"5.00"_s));
    EXPECT_EQ(Manos(), QList<qint64>({3, 0, 0}));
    Registra(Comprobante(kImportado, u"00000020"_s), u"30.00"_s, u"0.60"_s);
    EXPECT_EQ(Manos(), QList<qint64>({3, 2, 0}));
    comprobantes.Elimina(Comprobante(kAntiguo, u"00000010"_s));
    EXPECT_EQ(Manos(), QList<qint64>({3, 2, 2}));
    EXPECT_EQ(Mira()->cuales,
              QStringList({u"el cliente 20555123459"_s, u"el comprobante 0001-00000010 de 20555123459"_s,
                           u"el comprobante 0001-00000020 de 20555123459"_s,
                           u"el comprobante de pago F001-00000010 del 0001-00000001"_s,
                           u"el comprobante de pago F001-00000020 del 0001-00000020"_s}));
    Registra(Comprobante(kAntiguo, u"00000021"_s), u"7.00"_s, u"0.14"_s);
    EXPECT_TRUE(Deshace(corrida));
    // The old client has another voucher than before the run: its totals are summed, as its dialog does.
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET"_s), u"00000001|00000002|00000021"_s);
    EXPECT_EQ(Totales(kAntiguo), u"3 147.50 2.95"_s);
    EXPECT_EQ(Lista(u"SELECT orden FROM TMPF518MANO"_s), QString());
}

TEST_F(WorkUndoTest, ARowByHandNeverBecomesTheRuns) {
    // The run's last rows are deleted, and a row is entered, whose number an engine might take from them.
    const int corrida = Importa(u"00000010"_s);
    TablasTrabajo(*m_base).EliminaCliente(kAntiguo);
    PagosTrabajo(*m_base).Borra(Pago(Comprobante(kImportado, u"00000010"_s), u"00000010"_s));
    ComprobantesTrabajo(*m_base).Borra(Comprobante(kImportado, u"00000010"_s));
    ClientesTrabajo(*m_base).Borra(kImportado);
    RegistraAntiguo();
    const QStringList aMano = Foto();
    EXPECT_EQ(Manos(), QList<qint64>({0, 0, 6}));
    EXPECT_TRUE(Deshace(corrida));
    EXPECT_EQ(Foto(), aMano);
}

TEST_F(WorkUndoTest, ARunThatNeverEndedIsUndoneToo) {
    RegistraAntiguo();
    const QStringList antes = Foto();
    const int corrida = Importa(u"00000010"_s, false);
    Registra(Comprobante(kAntiguo, u"00000020"_s), u"30.00"_s, u"0.60"_s);
    const std::optional<LoQueSeIria> seIria = Mira();
    ASSERT_TRUE(seIria);
    EXPECT_FALSE(seIria->corrida.fin);
    EXPECT_FALSE(seIria->corrida.transferidos);
    EXPECT_EQ(seIria->comprobantes, 2);
    EXPECT_TRUE(Deshace(corrida));
    PagosTrabajo(*m_base).BorraDe(Comprobante(kAntiguo, u"00000020"_s));
    ComprobantesTrabajo(*m_base).Elimina(Comprobante(kAntiguo, u"00000020"_s));
    TablasTrabajo(*m_base).RepasaTotales(kAntiguo);
    EXPECT_EQ(Foto(), antes);
}

TEST_F(WorkUndoTest, TheLastDeleteComesBackInItsPlace) {
    RegistraAntiguo();
    Importa(u"00000010"_s);
    UltimoBorrado ultimo(*m_base);
    EXPECT_FALSE(ultimo.Que());
    const struct {
        const char* nombre;
        std::function<void(Base&)> elimina;
        UltimoBorrado::Clase clase;
        ClaveComprobante clave;
    } casos[] = {
        {"a client with all of its", [](Base& base) { TablasTrabajo(base).EliminaCliente(kAntiguo); },
         UltimoBorrado::Clase::Cliente, Comprobante(kAntiguo, {})},
        {"a voucher with its payments",
         [](Base& base) { ComprobantesTrabajo(base).Elimina(Comprobante(kAntiguo, u"00000001"_s)); },
         UltimoBorrado::Clase::Comprobante, Comprobante(kAntiguo, u"00000001"_s)},
        {"a cash sale",
         [](Base& base) { ComprobantesTrabajo(base).Elimina(Comprobante(kAntiguo, u"00000002"_s, u"12"_s)); },
         UltimoBorrado::Clase::Comprobante, Comprobante(kAntiguo, u"00000002"_s, u"12"_s)},
        {"a payment voucher",
         [](Base& base) { PagosTrabajo(base).Borra(Pago(Comprobante(kAntiguo, u"00000001"_s), u"00000001"_s)); },
         UltimoBorrado::Clase::Pago, Comprobante(kAntiguo, u"00000001"_s)},
    };
    const QStringList antes = Foto();
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.nombre);
        caso.elimina(*m_base);
        EXPECT_NE(Foto(), antes);
        ASSERT_TRUE(ultimo.Que());
        EXPECT_EQ(ultimo.Que()->clase, caso.clase);
        EXPECT_EQ(ultimo.Que()->clave.numero, caso.clave.numero);
        EXPECT_EQ(ultimo.Que()->clave.tipCp, caso.clave.tipCp);
        ultimo.Devuelve();
        EXPECT_EQ(Foto(), antes);
        EXPECT_FALSE(ultimo.Que());
    }
}

TEST_F(WorkUndoTest, TheLastDeleteKeepsItsPlaceWhateverIsEnteredSince) {
    const ClaveCliente otro{CodigoDocumento(1), u"45678901"_s};
    RegistraAntiguo();
    TablasTrabajo(*m_base).EliminaCliente(kAntiguo); // the last rows of all
    Registra(Comprobante(otro, u"00000005"_s), u"1.00"_s, u"0.02"_s);
    const int corrida = Importa(u"00000010"_s);
    EXPECT_EQ(NumeroDe([&] { UltimoBorrado(*m_base).Devuelve(); }), 0);
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET ORDER BY "_s + m_base->NumeroDeFila(u"TMPF518PDET"_s)),
              u"00000001|00000002|00000005|00000010|00000010"_s);
    EXPECT_TRUE(Deshace(corrida));
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET ORDER BY "_s + m_base->NumeroDeFila(u"TMPF518PDET"_s)),
              u"00000001|00000002|00000005"_s);
}

TEST_F(WorkUndoTest, WhatWasEnteredAgainStaysAndSoDoesTheLastDelete) {
    RegistraAntiguo();
    TablasTrabajo(*m_base).EliminaCliente(kAntiguo);
    Registra(Comprobante(kAntiguo, u"00000001"_s), u"1.00"_s, u"0.02"_s);
    const QStringList antes = Foto();
    EXPECT_EQ(NumeroDe([&] { UltimoBorrado(*m_base).Devuelve(); }), static_cast<int>(NumeroError::ClaveDuplicada));
    EXPECT_EQ(Foto(), antes);
    EXPECT_TRUE(UltimoBorrado(*m_base).Que());
}

TEST_F(WorkUndoTest, AClientThatLostItsVouchersOneByOneComesBackWithTheLast) {
    RegistraAntiguo();
    ComprobantesTrabajo(*m_base).Elimina(Comprobante(kAntiguo, u"00000001"_s));
    ComprobantesTrabajo(*m_base).Elimina(Comprobante(kAntiguo, u"00000002"_s, u"12"_s));
    ClientesTrabajo(*m_base).Borra(kAntiguo);
    EXPECT_EQ(UltimoBorrado(*m_base).Que()->clase, UltimoBorrado::Clase::Cliente);
    UltimoBorrado(*m_base).Devuelve();
    EXPECT_EQ(Lista(u"SELECT num_cp FROM TMPF518PDET"_s), u"00000002"_s);
    EXPECT_EQ(Totales(kAntiguo), u"1 40.00 0.80"_s);
}

TEST_F(WorkUndoTest, AnotherDeclarationKnowsNothingOfThem) {
    RegistraAntiguo();
    Importa(u"00000010"_s);
    TablasTrabajo(*m_base).EliminaCliente(kAntiguo);
    TablasTrabajo(*m_base).Reconstruye(
        {.ruc = Ruc(u"20555123451"), .periodo = Periodo(2026, 10), .formulario = u"0518"_s});
    EXPECT_FALSE(CorridasTrabajo(*m_base).Ultima());
    EXPECT_FALSE(UltimoBorrado(*m_base).Que());
    EXPECT_EQ(Lista(u"SELECT orden FROM TMPF518PREVIO"_s), QString());
}

} // namespace

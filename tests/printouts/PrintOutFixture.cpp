#include "printouts/PrintOutFixture.h"

#include "data/Transaction.h"
#include "printouts/RunReport.h"

namespace xa518::prueba {

Taller::Taller() : ProcesoConInformes({Formulario0518()}, kNumFormulario) {
    for (const QString& documento : {u"6 RUC 1"_s, u"1 DNI 1"_s, u"7 PASAPORTE 0"_s}) {
        const QStringList campos = documento.split(u' ');
        base.Param(u"044"_s, campos[0], Funcion({{1, u"DOCUMENTO"_s}, {32, campos[1]}, {75, campos[2]}}));
    }
    base.Param(u"233"_s, u"01"_s, Funcion({{1, u"FACTURA"_s}, {64, u"1"_s}}));
    base.Param(u"233"_s, u"02"_s, Funcion({{1, u"RECIBO POR HONORARIOS"_s}, {64, u"0"_s}}));
    base.Param(u"233"_s, u"12"_s, Funcion({{1, u"TICKET DE MÁQUINA"_s}, {64, u"1"_s}}));
    base->Ejecuta(u"INSERT INTO CONT VALUES (6,?,?,'ANA',0)"_s,
                  {clave.ruc.Texto(), u"COMERCIALIZADORA Y DISTRIBUIDORA ÑAUPARI HERMANOS S.A.C."_s});
}

void Taller::Pon(const QString& tabla, Columnas fila, const Columnas& otras) {
    fila.insert(otras);
    fila.insert({{u"Doc_id_d"_s, clave.ruc.Texto()}, {u"periodo"_s, clave.periodo.Texto()}});
    if (clave.enviada)
        fila.insert(u"correl"_s, clave.correl);
    base.Agrega(clave.Tabla(tabla), fila);
}

void Taller::Cabecera(const QList<std::pair<QString, QString>>& casillas, const QString& cheque,
                      const QString& rectifica) {
    const Columnas efectivo{{u"bcolibrad"_s, u" "_s}, {u"nrocheque"_s, u" "_s}, {u"efectivo"_s, u"150"_s}};
    const Columnas conCheque{{u"bcolibrad"_s, u"02"_s}, {u"nrocheque"_s, cheque}, {u"cheque"_s, u"150"_s}};
    Columnas cabecera{{u"estado"_s, clave.enviada ? 1 : 0}, {u"rectifica"_s, rectifica}};
    if (clave.enviada)
        cabecera.insert({{u"control"_s, u"10000001"_s}, {u"norden"_s, u"4000123456"_s}});
    Pon(u"CAB"_s, cabecera, cheque.isEmpty() ? efectivo : conCheque);
    for (const auto& [casilla, valor] : casillas)
        Pon(u"DET"_s, {{u"Casilla"_s, casilla}, {u"i_valor"_s, valor}});
}

/// The columns in which rows name their client.
static Columnas De(const QString& cliente) {
    return {{u"tip_doc_per"_s, cliente.size() == 8 ? 1 : 6}, {u"num_doc_per"_s, cliente}};
}

void Taller::Cliente(const QString& numero, const QVariant& razon, const Columnas& otras) {
    Columnas fila{{u"des_razon"_s, razon}, {u"mto_base_p"_s, u"100.00"_s}, {u"mto_imp_p"_s, u"2.00"_s}};
    fila.insert(De(numero));
    Pon(u"F518PCAB"_s, fila, otras);
}

void Taller::Comprobante(const QString& cliente, const QString& numero, const Columnas& otras) {
    Columnas fila{{u"num_serie_cp"_s, u"P001"_s}, {u"num_cp"_s, numero},       {u"fec_emision_cp"_s, u"12/01/2026"_s},
                  {u"mto_base_p"_s, u"100.00"_s}, {u"mto_imp_p"_s, u"2.00"_s}, {u"por_tasa_p"_s, u"2.00"_s},
                  {u"cp_fact"_s, u"1"_s},         {u"lista_clie"_s, u"0"_s},   {u"med_pago"_s, u"1"_s}};
    fila.insert(De(cliente));
    Pon(otras.contains(u"tip_cp"_s) ? u"F518PDETVC"_s : u"F518PDET"_s, fila, otras);
}

void Taller::Pago(const QString& cliente, const QString& comprobante, const QString& numero, const Columnas& otras) {
    Columnas fila{{u"num_serie_cp"_s, u"P001"_s},    {u"num_cp"_s, comprobante}, {u"tip_doc_detcp"_s, u"01"_s},
                  {u"num_serie_detcp"_s, u"F001"_s}, {u"num_detcp"_s, numero},   {u"fec_emis_detcp"_s, u"10/01/2026"_s},
                  {u"mto_detcp"_s, u"100.00"_s}};
    fila.insert(De(cliente));
    Pon(u"F518PDETCP"_s, fila, otras);
}

void Taller::Imprime(bool anexo, Libreta& libreta) {
    libreta.comandos.clear();
    const auto datos = CargarCasillas(*proceso.baseDatos, clave);
    EjecutaReporte(proceso, PedidoDeclaracion{datos.value(), anexo}, libreta);
}

void Taller::Vacia() {
    for (const QString& tabla : kTablas) {
        base->Ejecuta(u"DELETE * FROM "_s + tabla);
        base->Ejecuta(u"DELETE * FROM H"_s + tabla);
    }
}

void Taller::DeUnaVez(const std::function<void()>& trabajo) {
    Transaccion transaccion = base->Comienza();
    trabajo();
    transaccion.Confirma();
}

void Taller::Clientes(int cuantos) {
    DeUnaVez([&] {
        for (int i = 1; i <= cuantos; ++i) {
            const bool empresa = i % 2 == 1;
            const QString numero =
                (empresa ? u"20"_s : QString()) + QString::number(i).rightJustified(empresa ? 9 : 8, u'0');
            if (empresa)
                Cliente(numero, u"BODEGA DEL VALLE N° %1 E.I.R.L."_s.arg(i));
            else
                Cliente(numero, {},
                        {{u"des_apellido_p"_s, u"NÚÑEZ"_s},
                         {u"des_apellido_m"_s, u"PEÑA"_s},
                         {u"des_nombres"_s, u"JOSÉ MARÍA %1"_s.arg(i)}});
            Comprobante(numero, u"00000001"_s);
            Pago(numero, u"00000001"_s, u"00004511"_s);
        }
    });
}

} // namespace xa518::prueba

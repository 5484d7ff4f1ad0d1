#include "reports/ReportFixture.h"

#include "data/Transaction.h"
#include "reports/RunReport.h"

#include <QDir>

namespace xa518::prueba {

using namespace Qt::StringLiterals;

Taller::Taller() {
    for (const QString& documento : {u"6 RUC 1"_s, u"1 DNI 1"_s, u"7 PASAPORTE 0"_s}) {
        const QStringList campos = documento.split(u' ');
        base.Param(u"044"_s, campos[0], Funcion({{1, u"DOCUMENTO"_s}, {32, campos[1]}, {75, campos[2]}}));
    }
    base.Param(u"233"_s, u"01"_s, Funcion({{1, u"FACTURA"_s}, {64, u"1"_s}}));
    base.Param(u"233"_s, u"02"_s, Funcion({{1, u"RECIBO POR HONORARIOS"_s}, {64, u"0"_s}}));
    base.Param(u"233"_s, u"12"_s, Funcion({{1, u"TICKET DE MÁQUINA"_s}, {64, u"1"_s}}));
    base->Ejecuta(u"INSERT INTO CONT VALUES (6,?,?,'ANA',0)"_s,
                  {clave.ruc, u"COMERCIALIZADORA Y DISTRIBUIDORA ÑAUPARI HERMANOS S.A.C."_s});
    proceso.sysUser = u"ANA"_s;
    proceso.rutaRPT = base.Carpeta() + u"/RPT"_s;
    QDir().mkpath(proceso.rutaRPT);
    proceso.baseDatos = Base::Abre(base.Ruta());
}

void Taller::Pon(const QString& tabla, const QString& columnas, const QVariantList& valores) {
    QMap<QString, QVariant> fila{{u"Doc_id_d"_s, clave.ruc}, {u"periodo"_s, clave.periodo}};
    if (clave.enviada)
        fila.insert(u"correl"_s, clave.correl);
    const QStringList nombres = columnas.split(u' ');
    for (qsizetype i = 0; i < nombres.size(); ++i)
        fila.insert(nombres[i], valores[i]);
    base.Agrega(clave.Tabla(tabla), fila);
}

void Taller::Cabecera(const QList<std::pair<QString, QString>>& casillas, const QString& cheque,
                      const QString& rectifica) {
    const QStringList pago =
        cheque.isEmpty() ? QStringList{u" "_s, u" "_s, u""_s, u"150"_s} : QStringList{u"02"_s, cheque, u"150"_s, u""_s};
    Pon(u"CAB"_s,
        u"estado rectifica bcolibrad nrocheque cheque efectivo"_s + (clave.enviada ? u" control norden"_s : QString()),
        {clave.enviada ? 1 : 0, rectifica, pago[0], pago[1], pago[2], pago[3], u"10000001"_s, u"4000123456"_s});
    for (const auto& [casilla, valor] : casillas)
        Pon(u"DET"_s, u"Casilla i_valor"_s, {casilla, valor});
}

static int TipoDe(const QString& numero) {
    return numero.size() == 8 ? 1 : 6;
}

void Taller::Agrega(const Cliente& c) {
    Pon(u"F518PCAB"_s,
        u"tip_doc_per num_doc_per des_razon des_apellido_p des_apellido_m des_nombres mto_base_p mto_imp_p"_s,
        {c.tipoDoc, c.numero, c.razon, c.paterno, c.materno, c.nombres, c.base, c.percepcion});
}

void Taller::Agrega(const Comprobante& c) {
    const bool contado = !c.tipo.isEmpty(); // only such a one has a type
    Pon(contado ? u"F518PDETVC"_s : u"F518PDET"_s,
        u"tip_doc_per num_doc_per num_serie_cp num_cp fec_emision_cp mto_base_p mto_imp_p por_tasa_p cp_fact "
        "lista_clie med_pago"_s +
            (contado ? u" tip_cp"_s : QString()),
        {TipoDe(c.numeroCliente), c.numeroCliente, u"P001"_s, c.numero, u"12/01/2026"_s, c.base, c.percepcion,
         u"2.00"_s, c.cpFact, c.listaClie, c.medPago, c.tipo});
}

void Taller::Agrega(const Pago& p) {
    Pon(u"F518PDETCP"_s,
        u"tip_doc_per num_doc_per num_serie_cp num_cp tip_doc_detcp num_serie_detcp num_detcp fec_emis_detcp "
        "mto_detcp"_s,
        {TipoDe(p.numeroCliente), p.numeroCliente, u"P001"_s, p.comprobante, p.tipo, u"F001"_s, p.numero,
         u"10/01/2026"_s, p.monto});
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
                Agrega(Cliente{6, numero, u"BODEGA DEL VALLE N° %1 E.I.R.L."_s.arg(i)});
            else
                Agrega(Cliente{1, numero, {}, u"NÚÑEZ"_s, u"PEÑA"_s, u"JOSÉ MARÍA %1"_s.arg(i)});
            Agrega(Comprobante{numero});
            Agrega(Pago{numero});
        }
    });
}

QStringList Libreta::Textos(int pagina) const {
    QStringList textos;
    for (const Comando& comando : comandos) {
        const auto* texto = std::get_if<TextoEnPagina>(&comando);
        if (texto != nullptr && texto->pagina == pagina)
            textos.append(texto->texto);
    }
    return textos;
}

QString Libreta::TextoEn(int x, int y, int pagina) const {
    for (const Comando& comando : comandos) {
        const auto* texto = std::get_if<TextoEnPagina>(&comando);
        if (texto != nullptr && texto->x == x && texto->y == y && texto->pagina == pagina)
            return texto->texto;
    }
    return {};
}

} // namespace xa518::prueba

#include "reports/ReportFixture.h"

#include "data/Transaction.h"
#include "reports/RunReport.h"

#include <QDir>

#include <algorithm>

namespace xa518::prueba {

using namespace Qt::StringLiterals;

Taller::Taller() : m_reloj(QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5))), proceso(m_reloj) {
    const auto documento = [this](const QString& tipo, const QString& corto, const QString& enInformes) {
        m_base.Param(u"044"_s, tipo, Funcion({{1, u"DOCUMENTO"_s}, {32, corto}, {75, enInformes}}));
    };
    documento(u"6"_s, u"RUC"_s, u"1"_s);
    documento(u"1"_s, u"DNI"_s, u"1"_s);
    documento(u"7"_s, u"PASAPORTE"_s, u"0"_s);
    m_base.Param(u"233"_s, u"01"_s, Funcion({{1, u"FACTURA"_s}, {64, u"1"_s}}));
    m_base.Param(u"233"_s, u"02"_s, Funcion({{1, u"RECIBO POR HONORARIOS"_s}, {64, u"0"_s}}));
    m_base.Param(u"233"_s, u"12"_s, Funcion({{1, u"TICKET DE MÁQUINA"_s}, {64, u"1"_s}}));
    m_base->Ejecuta(u"INSERT INTO CONT VALUES (6,?,?,'ANA',0)"_s,
                    {clave.ruc, u"COMERCIALIZADORA Y DISTRIBUIDORA ÑAUPARI HERMANOS S.A.C."_s});
    proceso.sysUser = u"ANA"_s;
    proceso.rutaRPT = m_base.Carpeta() + u"/RPT"_s;
    QDir().mkpath(proceso.rutaRPT);
    proceso.baseDatos = Base::Abre(m_base.Ruta());
}

void Taller::Pon(const QString& tabla, QMap<QString, QVariant> valores) {
    valores.insert({{u"Doc_id_d"_s, clave.ruc}, {u"periodo"_s, clave.periodo}});
    if (clave.enviada)
        valores.insert(u"correl"_s, clave.correl);
    m_base.Agrega(clave.Tabla(tabla), valores);
}

void Taller::Cabecera(const QList<std::pair<QString, QString>>& casillas, const QString& cheque,
                      const QString& rectifica) {
    const bool efectivo = cheque.isEmpty();
    QMap<QString, QVariant> columnas{
        {u"estado"_s, clave.enviada ? 1 : 0},          {u"rectifica"_s, rectifica},
        {u"bcolibrad"_s, efectivo ? u" "_s : u"02"_s}, {u"nrocheque"_s, efectivo ? u" "_s : cheque},
        {u"cheque"_s, efectivo ? u""_s : u"150"_s},    {u"efectivo"_s, efectivo ? u"150"_s : u""_s}};
    if (clave.enviada)
        columnas.insert({{u"control"_s, u"10000001"_s}, {u"norden"_s, u"4000123456"_s}});
    Pon(u"CAB"_s, columnas);
    for (const auto& [casilla, valor] : casillas)
        Pon(u"DET"_s, {{u"Casilla"_s, casilla}, {u"i_valor"_s, valor}});
}

void Taller::Agrega(const Cliente& cliente) {
    const auto oNulo = [](const QString& texto) { return texto.isEmpty() ? QVariant() : QVariant(texto); };
    Pon(u"F518PCAB"_s, {{u"tip_doc_per"_s, cliente.tipoDoc},
                        {u"num_doc_per"_s, cliente.numero},
                        {u"des_razon"_s, oNulo(cliente.razon)},
                        {u"des_apellido_p"_s, oNulo(cliente.paterno)},
                        {u"des_apellido_m"_s, oNulo(cliente.materno)},
                        {u"des_nombres"_s, oNulo(cliente.nombres)},
                        {u"mto_base_p"_s, cliente.base},
                        {u"mto_imp_p"_s, cliente.percepcion}});
}

namespace {

int TipoDe(const QString& numero) {
    return numero.size() == 8 ? 1 : 6;
}

} // namespace

void Taller::Agrega(const Comprobante& comprobante) {
    QMap<QString, QVariant> columnas{{u"tip_doc_per"_s, TipoDe(comprobante.numeroCliente)},
                                     {u"num_doc_per"_s, comprobante.numeroCliente},
                                     {u"num_serie_cp"_s, u"P001"_s},
                                     {u"num_cp"_s, comprobante.numero},
                                     {u"fec_emision_cp"_s, u"12/01/2026"_s},
                                     {u"mto_base_p"_s, comprobante.base},
                                     {u"mto_imp_p"_s, comprobante.percepcion},
                                     {u"por_tasa_p"_s, u"2.00"_s},
                                     {u"cp_fact"_s, comprobante.cpFact},
                                     {u"lista_clie"_s, comprobante.listaClie},
                                     {u"med_pago"_s, comprobante.medPago}};
    if (!comprobante.tipo.isEmpty())
        columnas.insert(u"tip_cp"_s, comprobante.tipo);
    Pon(comprobante.tipo.isEmpty() ? u"F518PDET"_s : u"F518PDETVC"_s, columnas);
}

void Taller::Agrega(const Pago& pago) {
    Pon(u"F518PDETCP"_s, {{u"tip_doc_per"_s, TipoDe(pago.numeroCliente)},
                          {u"num_doc_per"_s, pago.numeroCliente},
                          {u"num_serie_cp"_s, u"P001"_s},
                          {u"num_cp"_s, pago.comprobante},
                          {u"tip_doc_detcp"_s, pago.tipo},
                          {u"num_serie_detcp"_s, u"F001"_s},
                          {u"num_detcp"_s, pago.numero},
                          {u"fec_emis_detcp"_s, u"10/01/2026"_s},
                          {u"mto_detcp"_s, pago.monto}});
}

void Taller::Imprime(bool anexo, Libreta& libreta) {
    libreta.comandos.clear();
    const auto datos = CargarCasillas(*proceso.baseDatos, clave);
    EjecutaReporte(proceso, PedidoDeclaracion{datos.value(), anexo}, libreta);
}

void Taller::Vacia() {
    for (const QString& tabla : kTablas) {
        m_base->Ejecuta(u"DELETE * FROM "_s + tabla);
        m_base->Ejecuta(u"DELETE * FROM H"_s + tabla);
    }
}

void Taller::DeUnaVez(const std::function<void()>& trabajo) {
    Transaccion transaccion = m_base->Comienza();
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
        if (texto != nullptr && texto->pagina == pagina && texto->x == x && texto->y == y)
            return texto->texto;
    }
    return {};
}

int Libreta::Hojas() const {
    return 1 + static_cast<int>(std::count(comandos.begin(), comandos.end(), Comando(NuevaHoja())));
}

QStringList LineasDe(const QString& ruta) {
    QStringList lineas = QString::fromUtf8(BytesDe(ruta)).split(u'\n');
    if (lineas.last().isEmpty())
        lineas.removeLast();
    return lineas;
}

} // namespace xa518::prueba

#include "launcher/DeclarationList.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A declaration stays in the list when its declarant is gone: it can still be sent or looked up.
QString SqlLista(qsizetype formularios, bool enviadas) {
    return u"SELECT A.*, B.Nombre FROM %1 AS A LEFT JOIN CONT AS B ON A.Doc_id_d = B.Doc_id_d AND B.Tip_doc_d = 6"
           " WHERE A.tip_doc_d = 6 AND A.Formulario IN (%2) ORDER BY A.periodo DESC, A.Doc_id_d%3"_s.arg(
               enviadas ? u"HCAB"_s : u"CAB"_s, QStringList(formularios, u"?"_s).join(u','),
               enviadas ? u", val(A.correl) DESC"_s : QString());
}

DeclaracionListada Lee(const Registros& fila, bool enviada) {
    DeclaracionListada declaracion;
    declaracion.clave = {.ruc = Ruc(fila.Texto(u"Doc_id_d")),
                         .periodo = Periodo::DeTabla(fila.Texto(u"periodo")).value_or(Periodo()),
                         .formulario = fila.Texto(u"Formulario"),
                         .enviada = enviada};
    declaracion.nombre = fila.Texto(u"Nombre");
    declaracion.estado = static_cast<int>(fila.Entero(fila.Columna(u"estado")));
    declaracion.rectifica = fila.Texto(u"rectifica") == u"1";
    declaracion.fechaProceso = fila.Texto(u"fec_pro");
    if (enviada) {
        const QString orden = fila.Texto(u"norden");
        declaracion.clave.correl = fila.Texto(u"correl");
        declaracion.fechaEnvio = fila.Texto(u"fec_env");
        declaracion.control = fila.Texto(u"control");
        declaracion.orden = orden == u"0" ? QString() : orden;
    }
    return declaracion;
}

} // namespace

QString DeclaracionListada::Identidad() const {
    return QStringList{clave.formulario, clave.ruc.Texto(), clave.periodo.Texto(), clave.correl}.join(u'|');
}

QString DeclaracionListada::Estado() const {
    switch (estado) {
    case kEstadoLimpia: return u"Lista para enviar"_s;
    case kEstadoEnviada: return u"Enviada"_s;
    case kEstadoInconsistente: return u"Con inconsistencias"_s;
    default: return u"Desconocido (%1)"_s.arg(estado);
    }
}

QString DeclaracionListada::Rectifica() const {
    return rectifica ? u"Sí"_s : u"No"_s;
}

QList<DeclaracionListada> ListaDeclaraciones(Base& base, const Formularios& formularios, TipoDeLista cual) {
    const bool enviadas = cual == TipoDeLista::Enviadas;
    QVariantList numeros;
    for (const Formulario& formulario : formularios)
        numeros.append(formulario.numero);
    QList<DeclaracionListada> lista;
    Registros filas = base.Lee(SqlLista(numeros.size(), enviadas), numeros);
    while (filas.Siguiente())
        lista.append(Lee(filas, enviadas));
    return lista;
}

} // namespace xa518

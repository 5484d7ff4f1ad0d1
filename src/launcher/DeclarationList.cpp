#include "launcher/DeclarationList.h"

#include "data/Base.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A declaration stays in the list when its declarant is gone: it can still be sent or looked up.
QString SqlLista(qsizetype formularios, bool enviadas) {
    const QString deEnvio = enviadas ? u", A.norden, A.correl, A.fec_env, A.control"_s : QString();
    return u"SELECT A.Doc_id_d, A.periodo, A.Formulario, A.estado, A.rectifica, A.fec_pro, B.Nombre"_s + deEnvio +
           u" FROM %1 AS A LEFT JOIN CONT AS B ON A.Doc_id_d = B.Doc_id_d AND B.Tip_doc_d = 6"
           " WHERE A.tip_doc_d = 6 AND A.Formulario IN (%2) ORDER BY A.periodo DESC, A.Doc_id_d%3"_s.arg(
               enviadas ? u"HCAB"_s : u"CAB"_s, QStringList(formularios, u"?"_s).join(u','),
               enviadas ? u", val(A.correl) DESC"_s : QString());
}

/// Where the columns of the list stand, found once for all its rows.
class LectorDeDeclaraciones {
  public:
    LectorDeDeclaraciones(const Registros& filas, bool enviada)
        : m_filas(&filas)
        , m_enviada(enviada)
        , m_ruc(filas.Columna(u"Doc_id_d"))
        , m_periodo(filas.Columna(u"periodo"))
        , m_formulario(filas.Columna(u"Formulario"))
        , m_nombre(filas.Columna(u"Nombre"))
        , m_estado(filas.Columna(u"estado"))
        , m_rectifica(filas.Columna(u"rectifica"))
        , m_fecPro(filas.Columna(u"fec_pro")) {
        if (enviada)
            m_deEnvio = {filas.Columna(u"norden"), filas.Columna(u"correl"), filas.Columna(u"fec_env"),
                         filas.Columna(u"control")};
    }

    [[nodiscard]] DeclaracionListada Lee() const {
        DeclaracionListada declaracion;
        declaracion.clave = {.ruc = Ruc(m_filas->Texto(m_ruc)),
                             .periodo = Periodo::DeTabla(m_filas->Texto(m_periodo)).value_or(Periodo()),
                             .formulario = m_filas->Texto(m_formulario),
                             .enviada = m_enviada};
        declaracion.nombre = m_filas->Texto(m_nombre);
        declaracion.estado = static_cast<int>(m_filas->Entero(m_estado));
        declaracion.rectifica = m_filas->Texto(m_rectifica) == u"1";
        declaracion.fechaProceso = m_filas->Texto(m_fecPro);
        if (m_enviada)
            LeeEnvio(declaracion);
        return declaracion;
    }

  private:
    struct DeEnvio {
        int orden = 0;
        int correl = 0;
        int fecha = 0;
        int control = 0;
    };

    void LeeEnvio(DeclaracionListada& declaracion) const {
        const QString orden = m_filas->Texto(m_deEnvio.orden);
        declaracion.clave.correl = m_filas->Texto(m_deEnvio.correl);
        declaracion.fechaEnvio = m_filas->Texto(m_deEnvio.fecha);
        declaracion.control = m_filas->Texto(m_deEnvio.control);
        declaracion.orden = orden == u"0" ? QString() : orden;
    }

    const Registros* m_filas;
    bool m_enviada;
    int m_ruc;
    int m_periodo;
    int m_formulario;
    int m_nombre;
    int m_estado;
    int m_rectifica;
    int m_fecPro;
    DeEnvio m_deEnvio;
};

} // namespace

QString DeclaracionListada::Identidad() const {
    return clave.formulario + u'|' + clave.ruc.Texto() + u'|' + clave.periodo.Texto() + u'|' + clave.correl;
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
    const LectorDeDeclaraciones lector(filas, enviadas);
    while (filas.Siguiente())
        lista.append(lector.Lee());
    return lista;
}

QStringList Identidades(const QList<DeclaracionListada>& lista) {
    QStringList identidades;
    identidades.reserve(lista.size());
    for (const DeclaracionListada& declaracion : lista)
        identidades.append(declaracion.Identidad());
    return identidades;
}

} // namespace xa518

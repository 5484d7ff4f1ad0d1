#include "launcher/Declarants.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/OfferedDeclarants.h"
#include "family/WorkLock.h"
#include "launcher/TextChecks.h"
#include "values/ObjetoUtil.h"
#include "values/Text.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIngresoGeneral = 1; ///< of `Tipo_Ingreso`; only a sibling form looks for another

bool EsRucAdmitido(const Ruc& ruc) {
    return ruc.EsValido() || (ruc.EsAntiguo() && ObjetoUtil::ValidaNumeroDoc(ruc.Texto()));
}

VeredictoDeclarante ValidaDeclarante(const Declarante& declarante) {
    if (!EsRucAdmitido(declarante.ruc))
        return VeredictoDeclarante::Critico(u"El RUC '%1' no es válido."_s.arg(declarante.ruc.Texto()),
                                            CampoDeclarante::Ruc);
    if (declarante.nombre.isEmpty())
        return VeredictoDeclarante::Critico(u"Ingrese el nombre o razón social del declarante."_s,
                                            CampoDeclarante::Nombre);
    if (const Veredicto nombre = ValidaNombreDeDeclarante(declarante.nombre); !nombre)
        return VeredictoDeclarante::Rechaza(nombre.Motivo(), CampoDeclarante::Nombre);
    if (const Veredicto usuario = ValidaUsuario(declarante.usuario); !usuario)
        return VeredictoDeclarante::Rechaza(usuario.Motivo(), CampoDeclarante::Usuario);
    return Veredicto::Bien();
}

/// Where the columns stand, found once for all rows.
class LectorDeDeclarantes {
  public:
    explicit LectorDeDeclarantes(const Registros& filas)
        : m_filas(&filas)
        , m_ruc(filas.Columna(u"Doc_id_d"))
        , m_nombre(filas.Columna(u"Nombre"))
        , m_usuario(filas.Columna(u"Usuario")) {}

    [[nodiscard]] Declarante Lee() const {
        return {.ruc = Ruc(m_filas->Texto(m_ruc)),
                .nombre = m_filas->Texto(m_nombre),
                .usuario = m_filas->Texto(m_usuario)};
    }

  private:
    const Registros* m_filas;
    int m_ruc;
    int m_nombre;
    int m_usuario;
};

void Inserta(Base& base, const Declarante& declarante) {
    base.Ejecuta(u"INSERT INTO CONT (Tip_doc_d, Doc_id_d, Nombre, Usuario, Tipo_Ingreso) VALUES (6, ?, ?, ?, ?)"_s,
                 {declarante.ruc.Texto(), declarante.nombre, declarante.usuario, kIngresoGeneral});
}

void Cambia(Base& base, const Declarante& declarante, const Declarante& anterior) {
    base.Ejecuta(u"UPDATE CONT SET Nombre = ?, Usuario = ? WHERE Tip_doc_d = 6 AND Doc_id_d = ?"_s,
                 {declarante.nombre, declarante.usuario.isEmpty() ? anterior.usuario : declarante.usuario,
                  declarante.ruc.Texto()});
}

} // namespace

QList<Declarante> Declarantes::Lista() const {
    Registros filas = m_base->Lee(u"SELECT * FROM CONT WHERE Tip_doc_d = 6 ORDER BY Doc_id_d"_s);
    const LectorDeDeclarantes lector(filas);
    QList<Declarante> lista;
    while (filas.Siguiente())
        lista.append(lector.Lee());
    return lista;
}

std::optional<Declarante> Declarantes::Busca(const Ruc& ruc) const {
    Registros filas = m_base->Lee(u"SELECT * FROM CONT WHERE Tip_doc_d = 6 AND Doc_id_d = ?"_s, {ruc.Texto()});
    return filas.Siguiente() ? std::optional(LectorDeDeclarantes(filas).Lee()) : std::nullopt;
}

/// In the order of the tables; a user that is written in two ways is one.
QStringList Declarantes::Usuarios() const {
    Registros filas = m_base->Lee(u"SELECT Usuario FROM (SELECT Usuario, 1 AS tabla FROM CLAVES UNION ALL"
                                  " SELECT Usuario, 2 FROM CONT) AS q ORDER BY Usuario, tabla"_s);
    QStringList usuarios;
    while (filas.Siguiente()) {
        const QString usuario = filas.Texto(0);
        if (!usuario.isEmpty() && (usuarios.isEmpty() || std::is_neq(ComparaSinCaja(usuarios.constLast(), usuario))))
            usuarios.append(usuario);
    }
    return usuarios;
}

QStringList Declarantes::QueVe(const QString& usuario) const {
    ConsultaSql consulta{u"SELECT B.Doc_id_d FROM CONT AS B WHERE B.Tip_doc_d = 6"_s, {}};
    LimitaAlUsuario(consulta, *m_base, usuario);
    Registros filas = m_base->Lee(consulta.texto, QVariantList(consulta.valores.begin(), consulta.valores.end()));
    QStringList numeros;
    while (filas.Siguiente())
        numeros.append(filas.Texto(0));
    return numeros;
}

VeredictoDeclarante Declarantes::Registra(Declarante declarante, const Firma& firma) {
    return Escribe(std::move(declarante), Modo::Cualquiera, firma);
}

VeredictoDeclarante Declarantes::Agrega(Declarante declarante, const Firma& firma) {
    return Escribe(std::move(declarante), Modo::Nuevo, firma);
}

VeredictoDeclarante Declarantes::Modifica(Declarante declarante, const Firma& firma) {
    return Escribe(std::move(declarante), Modo::Existente, firma);
}

VeredictoDeclarante Declarantes::Escribe(Declarante declarante, Modo modo, const Firma& firma) {
    declarante = {.ruc = declarante.ruc,
                  .nombre = Recorta(declarante.nombre).toString(),
                  .usuario = Recorta(declarante.usuario).toString()};
    if (VeredictoDeclarante veredicto = ValidaDeclarante(declarante); !veredicto)
        return veredicto;
    if (modo != Modo::Cualquiera && declarante.usuario.isEmpty())
        return VeredictoDeclarante::Critico(u"Ingrese el usuario a quien pertenece el declarante."_s,
                                            CampoDeclarante::Usuario);
    Transaccion transaccion = m_base->Comienza();
    const std::optional<Declarante> anterior = Busca(declarante.ruc);
    if (anterior && modo == Modo::Nuevo)
        return VeredictoDeclarante::Critico(
            u"El declarante %1 ya está registrado, con el nombre '%2'."_s.arg(anterior->ruc.Texto(), anterior->nombre),
            CampoDeclarante::Ruc);
    if (!anterior && modo == Modo::Existente)
        return VeredictoDeclarante::Critico(u"El declarante %1 ya no está registrado."_s.arg(declarante.ruc.Texto()),
                                            CampoDeclarante::Ruc);
    if (anterior)
        Cambia(*m_base, declarante, *anterior);
    else
        Inserta(*m_base, declarante);
    const QString marca = Anota(firma, declarante.ruc, anterior, Busca(declarante.ruc));
    Bitacora(*m_base).Confirma(transaccion, marca);
    return Veredicto::Bien();
}

VeredictoDeclarante Declarantes::Elimina(const Ruc& ruc, const Firma& firma) {
    const TrabajoUnico trabajo(*m_base, ruc);
    Transaccion transaccion = m_base->Comienza();
    if (TieneDeclaraciones(ruc))
        return VeredictoDeclarante::Critico(
            u"El declarante %1 tiene declaraciones: elimínelas primero."_s.arg(ruc.Texto()), CampoDeclarante::Ruc);
    const std::optional<Declarante> anterior = Busca(ruc);
    if (m_base->Ejecuta(u"DELETE * FROM CONT WHERE Tip_doc_d = 6 AND Doc_id_d = ?"_s, {ruc.Texto()}) == 0)
        return VeredictoDeclarante::Critico(u"El declarante %1 no está registrado."_s.arg(ruc.Texto()),
                                            CampoDeclarante::Ruc);
    const QString marca = Anota(firma, ruc, anterior, std::nullopt);
    Bitacora(*m_base).Confirma(transaccion, marca);
    return Veredicto::Bien();
}

QString Declarantes::Anota(const Firma& firma, const Ruc& ruc, const std::optional<Declarante>& antes,
                           const std::optional<Declarante>& despues) {
    const auto lineas = [](const std::optional<Declarante>& uno) {
        return uno ? u"nombre=%1\nusuario=%2"_s.arg(uno->nombre, uno->usuario) : QString();
    };
    return Bitacora(*m_base).Anota(firma, {.suceso = Suceso::Declarante,
                                           .clave = {.ruc = ruc, .periodo = {}, .formulario = {}},
                                           .antes = lineas(antes),
                                           .despues = lineas(despues)});
}

bool Declarantes::TieneDeclaraciones(const Ruc& ruc) const {
    Registros filas =
        m_base->Lee(u"SELECT 1 FROM CAB WHERE Doc_id_d = ? UNION ALL SELECT 1 FROM HCAB WHERE Doc_id_d = ?"_s,
                    {ruc.Texto(), ruc.Texto()});
    return filas.Siguiente();
}

} // namespace xa518

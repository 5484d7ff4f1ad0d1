#include "data/Base.h"

#include "data/Engine.h"
#include "data/FollowedWork.h"
#include "data/NewRows.h"
#include "data/Seats.h"
#include "data/ServerFailure.h"
#include "data/SqlTokens.h"
#include "data/Transaction.h"
#include "values/Progress.h"

#include <QScopeGuard>
#include <QSqlRecord>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// A text is never null for the tables, however Qt made it: only a value that was left out, or read as null, is. The
/// driver would take a default QString for null, and a condition on it would match no row.
QVariant SinTextoNulo(const QVariant& valor) {
    const bool esTexto = !valor.isNull() && valor.metaType() == QMetaType::fromType<QString>();
    return esTexto && static_cast<const QString*>(valor.constData())->isNull() ? QVariant(u""_s) : valor;
}

const QString kSoloLeia =
    u"Se perdió la conexión con el servidor de la base de datos. Lo que ya se había grabado está a"
    " salvo. Revise lo último que hizo y repítalo si hace falta: el programa volverá a"
    " conectarse."_s;
const QString kNoSeSabe = u"Se perdió la conexión con el servidor de la base de datos, y no se sabe si lo último quedó"
                          " grabado; lo anterior está a salvo. Revíselo y repítalo si hace falta: el programa volverá a"
                          " conectarse."_s;

/// The engine doesn't tell: a place that gets no value keeps the one of the call before.
void ExigeValores(const QString& sql, qsizetype lugares, qsizetype valores) {
    if (lugares != valores)
        throw ErrorBase(NumeroError::ArgumentoInvalido,
                        u"La consulta recibió %1 valores en lugar de %2: "_s.arg(valores).arg(lugares) + sql);
}

} // namespace

/// What a transaction had begun is gone with its connection, and that is how a loss is worded. Outside of one nothing
/// was about to be kept by a reading, and nobody knows what became of a change.
template <typename Trabajo>
auto Base::Distingue(const QString& texto, const Trabajo& trabajo) {
    try {
        return trabajo();
    } catch (const ErrorDeServidor& error) {
        if (m_enTransaccion || error.Falla() != FallaDeServidor::Perdida)
            throw;
        throw ErrorDeServidor(FallaDeServidor::Perdida, texto, error.Detalle());
    }
}

Registros::Registros(Base& base, Corrida corrida) : m_base(&base), m_corrida(std::move(corrida)) {}

Registros::Registros(Registros&& otro) noexcept = default;

Registros::~Registros() {
    if (m_corrida.consulta)
        m_base->Devuelve(std::move(m_corrida));
}

bool Registros::Siguiente() {
    QSqlQuery& consulta = *m_corrida.consulta;
    if (consulta.next() || m_base->m_motor->TraeMas(consulta))
        return true;
    if (consulta.lastError().isValid())
        m_base->Distingue(kSoloLeia, [&] { m_base->Falla(consulta); });
    return false;
}

QString Registros::Texto(int columna) const {
    return m_corrida.consulta->value(columna).toString();
}

qint64 Registros::Entero(int columna) const {
    return m_corrida.consulta->value(columna).toLongLong();
}

bool Registros::EsNulo(int columna) const {
    return m_corrida.consulta->isNull(columna);
}

QVariant Registros::Valor(int columna) const {
    // The driver hands null out as a default text, which bound again would be the empty text.
    return m_corrida.consulta->isNull(columna) ? QVariant() : m_corrida.consulta->value(columna);
}

int Registros::Columna(QStringView nombre) const {
    const int columna = m_corrida.consulta->record().indexOf(nombre.toString());
    if (columna < 0)
        throw ErrorBase(NumeroError::CampoNoExiste, u"La consulta no tiene la columna %1"_s.arg(nombre));
    return columna;
}

int Registros::Columnas() const {
    return m_corrida.consulta->record().count();
}

std::unique_ptr<Base> Base::Abre(const LugarDeBase& lugar, ModoApertura modo) {
    std::unique_ptr<Motor> motor = MotorPara(lugar.ruta);
    motor->Abre(lugar, modo);
    return std::unique_ptr<Base>(new Base(lugar, std::move(motor)));
}

std::unique_ptr<Base> Base::Abre(const LugarDeBase& lugar) {
    return Abre(lugar, ModoApertura::Existente);
}

std::unique_ptr<Base> Base::Crea(const QString& ruta) {
    return Abre({ruta}, ModoApertura::Nueva);
}

std::unique_ptr<Base> Base::AbreOCrea(const QString& ruta) {
    return Abre({ruta}, ModoApertura::Cualquiera);
}

Base::Base(LugarDeBase lugar, std::unique_ptr<Motor> motor)
    : m_lugar(std::move(lugar))
    , m_motor(std::move(motor))
    , m_puestos(m_motor->TienePuestos() ? std::make_unique<Puestos>(*this) : nullptr) {}

Base::~Base() {
    if (m_puestos && !m_motor->EstaPerdida())
        m_puestos->Deja();
    m_sentencias.clear(); // the statements go before the connection that they belong to
}

Registros Base::Lee(const QString& sql, const QVariantList& valores) {
    return {*this, Distingue(kSoloLeia, [&] { return Corre(sql, valores); })};
}

int Base::Ejecuta(const QString& sql, const QVariantList& valores) {
    return Distingue(kNoSeSabe, [&] { return EjecutaDentro(sql, valores); });
}

int Base::EjecutaDentro(const QString& sql, const QVariantList& valores) {
    if (m_seguido) {
        try {
            if (const std::optional<int> cambiadas = m_motor->EjecutaConVigia(sql, valores))
                return *cambiadas;
        } catch (const ErrorBase&) {
            AvisaElCorte();
            throw;
        }
    }
    Corrida corrida = Corre(sql, valores);
    const int cambiadas = corrida.consulta->numRowsAffected();
    Devuelve(std::move(corrida));
    return cambiadas;
}

/// What a lost connection had begun is gone: within a transaction nothing goes on as if it weren't.
void Base::ExigeConexion() {
    if (!m_motor->EstaPerdida())
        return;
    if (m_enTransaccion)
        std::rethrow_exception(m_motor->FallaDe(QSqlError()));
    for (auto& [sql, sentencia] : m_sentencias)
        sentencia.libres.clear();
    ++m_conexion;
    Reconecta();
}

/// Without its seat it would go on with another one's rows.
void Base::Reconecta() {
    const int anterior = m_motor->Reconecta();
    if (!m_puestos)
        return;
    if (!m_puestos->Retoma(anterior)) {
        m_motor->Conexion().close();
        throw ErrorBase(NumeroError::BaseBloqueada,
                        u"Este puesto fue quitado o tomado por otro programa mientras no había conexión con el"
                        " servidor. Cierre el programa y vuelva a abrirlo."_s);
    }
    m_puestos->RetomaOcupadas();
}

std::unique_ptr<QSqlQuery> Base::Prepara(const QString& sql) {
    auto consulta = std::make_unique<QSqlQuery>(m_motor->Conexion());
    consulta->setForwardOnly(m_motor->LeeDeUnaEnUna());
    if (!consulta->prepare(m_motor->Traduce(sql)))
        std::rethrow_exception(m_motor->FallaDe(consulta->lastError()));
    return consulta;
}

Corrida Base::Corre(const QString& sql, const QVariantList& valores) {
    ExigeConexion();
    const auto puesta = m_sentencias.try_emplace(sql);
    Sentencia& sentencia = puesta.first->second;
    if (puesta.second)
        sentencia.lugares = LugaresDeValores(sql);
    ExigeValores(sql, sentencia.lugares, valores.size());
    Corrida corrida{.consulta = nullptr, .sql = &puesta.first->first, .conexion = m_conexion};
    if (m_motor->SePrepara(sql)) {
        CorrePreparada(corrida, sentencia, valores);
        return corrida;
    }
    corrida.sql = nullptr;
    corrida.consulta = std::make_unique<QSqlQuery>(m_motor->Conexion());
    if (!m_motor->CorreSinPreparar(*corrida.consulta, sql, valores))
        Falla(*corrida.consulta);
    return corrida;
}

void Base::CorrePreparada(Corrida& corrida, Sentencia& sentencia, const QVariantList& valores) {
    if (sentencia.libres.empty()) {
        corrida.consulta = Prepara(*corrida.sql);
    } else {
        corrida.consulta = std::move(sentencia.libres.back());
        sentencia.libres.pop_back();
    }
    for (int i = 0; i < valores.size(); ++i)
        corrida.consulta->bindValue(i, SinTextoNulo(valores[i]));
    if (!corrida.consulta->exec()) {
        const QSqlError error = corrida.consulta->lastError();
        Devuelve(std::move(corrida));
        Falla(error);
    }
}

void Base::Devuelve(Corrida corrida) noexcept {
    if (corrida.sql == nullptr) {
        m_motor->Suelta(*corrida.consulta);
        return;
    }
    corrida.consulta->finish();
    if (corrida.conexion == m_conexion)
        m_sentencias[*corrida.sql].libres.push_back(std::move(corrida.consulta));
}

void Base::PonSeguido(TrabajoSeguido* seguido) {
    m_seguido = seguido;
    m_motor->PonVigia(seguido ? [seguido](qint64 filas) { return seguido->Sigue(filas); } : Motor::Vigia());
}

void Base::Falla(const QSqlQuery& consulta) const {
    Falla(consulta.lastError());
}

void Base::Falla(const QSqlError& error) const {
    AvisaElCorte();
    std::rethrow_exception(m_motor->FallaDe(error));
}

void Base::AvisaElCorte() const {
    if (m_seguido && m_seguido->TomaElCorte())
        throw Detenido();
}

const Tabla& Base::Describe(const QString& tabla) {
    const auto conocida = m_tablas.find(tabla);
    if (conocida != m_tablas.end())
        return conocida->second;
    Tabla leida{tabla, {}, {}};
    QStringList lugares;
    Registros columnas = Lee(m_motor->SqlColumnas(tabla));
    while (columnas.Siguiente()) {
        leida.columnas.append({columnas.Texto(0), columnas.Texto(1).startsWith(u"INT", Qt::CaseInsensitive)});
        lugares.append(u"?"_s);
    }
    if (leida.columnas.isEmpty())
        throw ErrorBase(NumeroError::TablaNoExiste, u"La base no tiene la tabla %1"_s.arg(tabla));
    leida.sqlAlta = u"INSERT INTO %1 VALUES (%2)"_s.arg(tabla, lugares.join(u','));
    return m_tablas.emplace(tabla, std::move(leida)).first->second;
}

QStringList Base::Tablas() {
    QStringList tablas;
    Registros filas = Lee(m_motor->SqlTablas());
    while (filas.Siguiente())
        tablas.append(filas.Texto(0));
    return tablas;
}

QString Base::NumeroDeFila(const QString& tabla) const {
    return m_motor->NumeroDeFila(tabla);
}

QString Base::EnOrdenDeAlta(const QString& tabla, const QString& condicion) const {
    return m_motor->SqlEnOrdenDeAlta(tabla, condicion);
}

QString Base::SqlUnidas(const QStringList& columnas) const {
    return m_motor->SqlUnidas(columnas);
}

void Base::Agrega(const Registro& registro) {
    Ejecuta(registro.DeTabla().sqlAlta, registro.Valores());
}

QList<size_t> Base::AgregaFilas(const FilasNuevas& filas) {
    if (filas.Cuantas() == 0)
        return {};
    ExigeConexion();
    try {
        return m_motor->AgregaFilas(filas);
    } catch (const ErrorBase&) {
        AvisaElCorte();
        throw;
    }
}

void Base::CopiaConChecksum(const CopiaDeFilas& copia, int primeros) {
    ExigeConexion();
    try {
        m_motor->CopiaConChecksum(*this, copia, primeros);
    } catch (const ErrorBase&) {
        AvisaElCorte();
        throw;
    }
}

qint64 Base::Version() {
    return LeeNumero(m_motor->SqlVersion());
}

int Base::VersionDelEsquema() {
    return static_cast<int>(LeeNumero(m_motor->SqlVersionDelEsquema()));
}

void Base::PonVersionDelEsquema(int version) {
    Ejecuta(m_motor->SqlPonVersionDelEsquema(version));
}

qint64 Base::LeeNumero(const QString& sql) {
    Registros fila = Lee(sql);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

QStringList Base::Defectos() {
    return m_motor->Defectos();
}

void Base::CopiaEn(const QString& archivo) {
    try {
        m_motor->CopiaEn(archivo);
    } catch (const ErrorBase&) {
        AvisaElCorte();
        throw;
    }
}

void Base::ExigeSola() {
    m_motor->ExigeSola();
}

std::optional<Registro> Base::Busca(const QString& tabla, const QString& condicion, const QVariantList& valores) {
    Registro registro(Describe(tabla));
    Registros filas = Lee(u"SELECT * FROM %1 %2"_s.arg(tabla, condicion), valores);
    if (!filas.Siguiente())
        return std::nullopt;
    for (int i = 0; i < registro.Valores().size(); ++i)
        registro.Pon(i, filas.Valor(i));
    return registro;
}

void Base::Actualiza(const Registro& registro, const QString& condicion, const QVariantList& valores) {
    QStringList columnas;
    for (const Columna& columna : registro.DeTabla().columnas)
        columnas.append(columna.nombre + u"=?"_s);
    Ejecuta(u"UPDATE %1 SET %2 %3"_s.arg(registro.DeTabla().nombre, columnas.join(u", "_s), condicion),
            registro.Valores() + valores);
}

Transaccion Base::Comienza(Turno turno) {
    return Transaccion(*this, turno);
}

void Base::PonTrabajo(const EsquemaDeTrabajo& trabajo) {
    m_lugar.trabajo = trabajo;
    m_motor->PonTrabajo(trabajo);
}

bool Base::SoloLectura() const {
    return m_motor->SoloLectura();
}

} // namespace xa518

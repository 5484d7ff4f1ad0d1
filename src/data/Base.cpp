#include "data/Base.h"

#include "data/Dialect.h"
#include "data/Engine.h"
#include "data/FollowedWork.h"
#include "data/NewRows.h"
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

/// The engine doesn't tell: a place that gets no value keeps the one of the call before.
void ExigeValores(const QString& sql, qsizetype lugares, qsizetype valores) {
    if (lugares != valores)
        throw ErrorBase(NumeroError::ArgumentoInvalido,
                        u"La consulta recibió %1 valores en lugar de %2: "_s.arg(valores).arg(lugares) + sql);
}

} // namespace

Registros::Registros(Base& base, const QString& sql, std::unique_ptr<QSqlQuery> consulta)
    : m_base(&base), m_sql(&sql), m_consulta(std::move(consulta)) {}

Registros::Registros(Registros&& otro) noexcept = default;

Registros::~Registros() {
    if (m_consulta)
        m_base->Devuelve(*m_sql, std::move(m_consulta));
}

bool Registros::Siguiente() {
    if (m_consulta->next())
        return true;
    if (m_consulta->lastError().isValid())
        m_base->Falla(*m_consulta);
    return false;
}

QString Registros::Texto(int columna) const {
    return m_consulta->value(columna).toString();
}

qint64 Registros::Entero(int columna) const {
    return m_consulta->value(columna).toLongLong();
}

bool Registros::EsNulo(int columna) const {
    return m_consulta->isNull(columna);
}

QVariant Registros::Valor(int columna) const {
    // The driver hands null out as a default text, which bound again would be the empty text.
    return m_consulta->isNull(columna) ? QVariant() : m_consulta->value(columna);
}

int Registros::Columna(QStringView nombre) const {
    const int columna = m_consulta->record().indexOf(nombre.toString());
    if (columna < 0)
        throw ErrorBase(NumeroError::CampoNoExiste, u"La consulta no tiene la columna %1"_s.arg(nombre));
    return columna;
}

int Registros::Columnas() const {
    return m_consulta->record().count();
}

std::unique_ptr<Base> Base::Abre(const QString& ruta) {
    std::unique_ptr<Motor> motor = MotorPara(ruta);
    motor->Abre(ruta, ModoApertura::Existente);
    return std::unique_ptr<Base>(new Base(ruta, std::move(motor)));
}

std::unique_ptr<Base> Base::Crea(const QString& ruta) {
    std::unique_ptr<Motor> motor = MotorPara(ruta);
    motor->Abre(ruta, ModoApertura::Nueva);
    return std::unique_ptr<Base>(new Base(ruta, std::move(motor)));
}

Base::Base(QString ruta, std::unique_ptr<Motor> motor) : m_ruta(std::move(ruta)), m_motor(std::move(motor)) {}

Base::~Base() {
    m_sentencias.clear(); // the statements go before the connection that they belong to
}

Registros Base::Lee(const QString& sql, const QVariantList& valores) {
    std::unique_ptr<QSqlQuery> consulta;
    const QString& texto = Corre(sql, valores, consulta);
    return {*this, texto, std::move(consulta)};
}

int Base::Ejecuta(const QString& sql, const QVariantList& valores) {
    std::unique_ptr<QSqlQuery> consulta;
    const QString& texto = Corre(sql, valores, consulta);
    const int cambiadas = consulta->numRowsAffected();
    Devuelve(texto, std::move(consulta));
    return cambiadas;
}

std::unique_ptr<QSqlQuery> Base::Prepara(const QString& sql) {
    auto consulta = std::make_unique<QSqlQuery>(m_motor->Conexion());
    consulta->setForwardOnly(true);
    if (!consulta->prepare(m_motor->Traduce(sql)))
        throw m_motor->ErrorDe(consulta->lastError());
    return consulta;
}

const QString& Base::Corre(const QString& sql, const QVariantList& valores, std::unique_ptr<QSqlQuery>& consulta) {
    const auto puesta = m_sentencias.try_emplace(sql);
    const QString& texto = puesta.first->first;
    Sentencia& sentencia = puesta.first->second;
    if (puesta.second)
        sentencia.lugares = LugaresDeValores(sql);
    ExigeValores(sql, sentencia.lugares, valores.size());
    if (sentencia.libres.empty()) {
        consulta = Prepara(sql);
    } else {
        consulta = std::move(sentencia.libres.back());
        sentencia.libres.pop_back();
    }
    for (int i = 0; i < valores.size(); ++i)
        consulta->bindValue(i, SinTextoNulo(valores[i]));
    if (!consulta->exec()) {
        const auto devuelve = qScopeGuard([&] { Devuelve(texto, std::move(consulta)); });
        Falla(*consulta);
    }
    return texto;
}

void Base::Devuelve(const QString& sql, std::unique_ptr<QSqlQuery> consulta) noexcept {
    consulta->finish();
    m_sentencias[sql].libres.push_back(std::move(consulta));
}

void Base::PonSeguido(TrabajoSeguido* seguido) {
    m_seguido = seguido;
    m_motor->PonVigia(seguido ? [seguido](qint64 filas) { return seguido->Sigue(filas); } : Motor::Vigia());
}

void Base::Falla(const QSqlQuery& consulta) const {
    AvisaElCorte();
    throw m_motor->ErrorDe(consulta.lastError());
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

QString Base::NumeroDeFila(const QString& tabla) const {
    return m_motor->NumeroDeFila(tabla);
}

void Base::Agrega(const Registro& registro) {
    Ejecuta(registro.DeTabla().sqlAlta, registro.Valores());
}

QList<size_t> Base::AgregaFilas(const FilasNuevas& filas) {
    if (filas.Cuantas() == 0)
        return {};
    try {
        return m_motor->AgregaFilas(filas);
    } catch (const ErrorBase&) {
        AvisaElCorte();
        throw;
    }
}

qint64 Base::Version() {
    Registros fila = Lee(m_motor->SqlVersion());
    return fila.Siguiente() ? fila.Entero(0) : 0;
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

Transaccion Base::Comienza() {
    return Transaccion(*this);
}

} // namespace xa518

#include "data/Engine.h"

#include "data/Base.h"
#include "data/PostgresEngine.h"
#include "data/SqliteEngine.h"

#include <QSqlQuery>

namespace xa518 {

using namespace Qt::StringLiterals;

bool Motor::CorreSinPreparar(QSqlQuery& consulta, const QString& sql, const QVariantList& valores) {
    if (!consulta.prepare(Traduce(sql)))
        return false;
    for (const QVariant& valor : valores)
        consulta.addBindValue(valor);
    return consulta.exec();
}

std::unique_ptr<Motor> MotorPara(const QString& ruta) {
    if (!EsDeServidor(ruta))
        return std::make_unique<MotorSqlite>();
    const bool esAjeno = ruta.contains("://"_L1) && !ruta.startsWith("postgres"_L1);
    if (esAjeno)
        throw ErrorBase(NumeroError::MotorAjeno, u"No hay un motor de base de datos para '%1'."_s.arg(ruta));
    return std::make_unique<MotorPostgres>();
}

} // namespace xa518

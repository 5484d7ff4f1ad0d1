#include "data/Workgroup.h"

#include "data/Base.h"
#include "values/FileFailure.h"
#include "values/PrivateAccess.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <sodium.h>

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPrimeraMascara = 0x5A;

void PreparaCifrado() {
    if (sodium_init() < 0)
        throw ErrorBase(NumeroError::CuentaRechazada, u"No se puede preparar el cifrado de las cuentas."_s);
}

QByteArray HashDe(const QString& clave) {
    PreparaCifrado();
    std::array<char, crypto_pwhash_STRBYTES> hash{};
    const QByteArray bytes = clave.toUtf8();
    if (crypto_pwhash_str_alg(hash.data(), bytes.constData(), static_cast<unsigned long long>(bytes.size()),
                              crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE,
                              crypto_pwhash_ALG_ARGON2ID13) != 0)
        throw ErrorBase(NumeroError::CuentaRechazada, u"No hay memoria para cifrar la cuenta."_s);
    return {hash.data()};
}

bool Coincide(const QByteArray& hash, const QString& clave) {
    PreparaCifrado();
    const QByteArray bytes = clave.toUtf8();
    return crypto_pwhash_str_verify(hash.constData(), bytes.constData(),
                                    static_cast<unsigned long long>(bytes.size())) == 0;
}

/// The accounts by user; none when the file is missing or damaged. One that can't be read raises: written anew it would
/// lose the other accounts.
QJsonObject Cuentas(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.exists())
        return {};
    if (!archivo.open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, archivo);
    return QJsonDocument::fromJson(archivo.readAll()).object();
}

} // namespace

QString TextoDeCodigos(const QString& codigos) {
    const QByteArray bytes = QByteArray::fromHex(codigos.toLatin1());
    QString texto;
    for (int i = 0; i < bytes.size(); ++i)
        texto += QChar(static_cast<char16_t>((static_cast<unsigned char>(bytes[i]) ^ (kPrimeraMascara + i)) & 0x7f));
    return texto;
}

void GrupoTrabajo::Verifica(const Cuenta& cuenta) const {
    if (!QFile::exists(m_ruta))
        throw ErrorBase(NumeroError::GrupoNoExiste,
                        u"No se encuentra el archivo de grupo de trabajo '%1'."_s.arg(m_ruta));
    const QByteArray hash = Cuentas(m_ruta).value(cuenta.usuario).toString().toLatin1();
    if (hash.isEmpty() || !Coincide(hash, cuenta.clave))
        throw ErrorBase(NumeroError::CuentaRechazada, u"El archivo de grupo de trabajo no admite la cuenta."_s);
}

void GrupoTrabajo::Admite(const Cuenta& cuenta) const {
    QJsonObject cuentas = Cuentas(m_ruta);
    cuentas.insert(cuenta.usuario, QString::fromLatin1(HashDe(cuenta.clave)));
    const QByteArray bytes = QJsonDocument(cuentas).toJson();
    QSaveFile archivo(m_ruta);
    const bool escrito = archivo.open(QIODevice::WriteOnly) && HazPrivado(archivo) &&
                         archivo.write(bytes) == bytes.size() && archivo.commit();
    if (!escrito)
        throw FallaDeArchivo(Intento::Escribir, archivo);
}

} // namespace xa518

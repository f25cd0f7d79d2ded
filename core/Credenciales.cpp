#include "core/Credenciales.h"

#include "core/vb/Cadenas.h"

namespace credenciales {

namespace {

const QString& Llave() {
    static const QString llave = QStringLiteral("=ñ+~!*?K");
    return llave;
}

}  // namespace

QString DescifraClave(const QString& guardado) {
    QString plano;
    const int pares = static_cast<int>(guardado.size()) / 2;
    for (int k = 0; k < pares; ++k) {
        bool ok = false;
        const int byte = guardado.mid(2 * k, 2).toInt(&ok, 16);
        if (!ok) break;
        const int llave = vb::Asc(Llave().mid(k % 8, 1));
        plano += vb::Chr(byte ^ llave);
    }
    return plano;
}

QString CifraClave(const QString& plano) {
    QString guardado;
    for (int k = 0; k < plano.size(); ++k) {
        const int byte = vb::Asc(plano.mid(k, 1)) ^ vb::Asc(Llave().mid(k % 8, 1));
        guardado += QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper();
    }
    return guardado;
}

QString Registro(const QString& login, const QString& clave, const QString& derechos, const QString& modulos) {
    return CifraClave(login + u',' + clave + u',' + derechos + u',' + modulos);
}

}  // namespace credenciales

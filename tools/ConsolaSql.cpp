#include "tools/ConsolaSql.h"

#include "core/dao/Dao.h"

#include <cmath>

namespace consola {

QString TextoValor(const vb::Variant& v) {
    switch (v.type()) {
    case vb::VarType::Empty:
    case vb::VarType::Null: return QStringLiteral("NULL");
    case vb::VarType::Boolean: return v.toBool() ? QStringLiteral("-1") : QStringLiteral("0");
    case vb::VarType::Integer:
    case vb::VarType::Long:
    case vb::VarType::Byte: return QString::number(v.toLong());
    case vb::VarType::Currency: return v.toCurrency().toSql();
    case vb::VarType::Single:
    case vb::VarType::Double: {
        const double d = v.toDouble();
        if (std::isfinite(d) && d == std::trunc(d) && std::fabs(d) < 1e15) return QString::number(static_cast<qlonglong>(d));
        QString t = QString::number(d, 'f', 10);
        while (t.endsWith(u'0')) t.chop(1);
        if (t.endsWith(u'.')) t.chop(1);
        return t;
    }
    case vb::VarType::Date: return v.toDate().toIso();
    case vb::VarType::String: return v.toString();
    }
    return {};
}

bool EjecutaSentencia(dao::Database& db, const QString& sentencia, QTextStream& salida, QTextStream& errores) {
    try {
        const QString t = sentencia.trimmed();
        const QString primera = t.section(u' ', 0, 0).toUpper();
        if (primera.startsWith(QLatin1String("SELECT")) || t.startsWith(u'(')) {
            auto rs = db.OpenRecordset(t, dao::dbOpenSnapshot);
            QStringList cabecera;
            for (int i = 0; i < rs->Fields().Count(); ++i) cabecera << rs->Fields(i).Name();
            salida << cabecera.join(u'\t') << '\n';
            while (!rs->Eof()) {
                QStringList fila;
                for (int i = 0; i < rs->Fields().Count(); ++i) fila << TextoValor(rs->Fields(i).Value());
                salida << fila.join(u'\t') << '\n';
                rs->MoveNext();
            }
        } else {
            db.Execute(t, dao::dbFailOnError);
        }
        salida.flush();
        return true;
    } catch (const vb::Error& e) {
        salida.flush();
        errores << "Error " << e.Number() << ": " << e.Description() << '\n';
        errores.flush();
        return false;
    }
}

}  // namespace consola

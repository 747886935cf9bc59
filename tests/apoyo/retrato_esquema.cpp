#include "apoyo/retrato_esquema.h"

#include <QStringList>

namespace {

// Tipo de un dominio o de una columna sin dominio propio.
#define TIPO_DE_CAMPO                                                                              \
    "d.rdb$field_type || '.' || coalesce(d.rdb$field_sub_type, 0) || ' largo ' ||"                 \
    " coalesce(d.rdb$field_length, 0) || ' escala ' || coalesce(d.rdb$field_scale, 0) ||"          \
    " ' juego ' || coalesce(d.rdb$character_set_id, 0) || ' orden ' ||"                            \
    " coalesce(d.rdb$collation_id, 0)"

// Cada consulta da el nombre del objeto y su definición. Lo que el motor nombra por su cuenta
// (INTEG_, RDB$) cambia de una base a otra y se compara por lo que dice.
constexpr const char* kConsultas[] = {
    "select 'RELACION ' || trim(rdb$relation_name), coalesce(rdb$relation_type, 0) || ' ' || "
    "coalesce(hash(rdb$view_source), 0) from rdb$relations where rdb$system_flag = 0",

    "select 'COLUMNA ' || trim(f.rdb$relation_name) || '.' || trim(f.rdb$field_name), 'puesto ' || "
    "f.rdb$field_position || ' ' || iif(f.rdb$field_source starting with 'RDB$'," TIPO_DE_CAMPO
    ", trim(f.rdb$field_source)) || ' obligatoria ' || coalesce(f.rdb$null_flag, 0) || ' orden ' "
    "|| coalesce(f.rdb$collation_id, 0) || ' defecto ' || coalesce(cast(f.rdb$default_source as "
    "varchar(200)), 'ninguno') || ' calculo ' || coalesce(hash(d.rdb$computed_source), 0) from "
    "rdb$relation_fields f join rdb$relations r on r.rdb$relation_name = f.rdb$relation_name left "
    "join rdb$fields d on d.rdb$field_name = f.rdb$field_source where r.rdb$system_flag = 0",

    "select 'DOMINIO ' || trim(d.rdb$field_name), " TIPO_DE_CAMPO
    " || ' obligatorio ' || coalesce(d.rdb$null_flag, 0) || ' defecto ' || "
    "coalesce(cast(d.rdb$default_source as varchar(200)), 'ninguno') || ' filtro ' || "
    "coalesce(hash(d.rdb$validation_source), 0) from rdb$fields d where d.rdb$system_flag = 0 and "
    "d.rdb$field_name not starting with 'RDB$'",

    "select 'INDICE ' || trim(i.rdb$relation_name) || '.' || iif(i.rdb$index_name starting with "
    "'RDB$', 'sin nombre', trim(i.rdb$index_name)), 'unico ' || coalesce(i.rdb$unique_flag, 0) || "
    "' bajando ' || coalesce(i.rdb$index_type, 0) || ' apagado ' || coalesce(i.rdb$index_inactive, "
    "0) || ' de ' || coalesce(trim(i.rdb$foreign_key), 'nadie') || ' expresion ' || "
    "coalesce(hash(i.rdb$expression_source), 0) || ' columnas ' || coalesce((select "
    "cast(list(trim(s.rdb$field_name)) as varchar(1000)) from (select * from rdb$index_segments "
    "order by rdb$index_name, rdb$field_position) s where s.rdb$index_name = i.rdb$index_name), "
    "'') from rdb$indices i where i.rdb$system_flag = 0",

    "select 'RESTRICCION ' || trim(c.rdb$relation_name) || '.' || iif(c.rdb$constraint_name "
    "starting with 'INTEG_', 'sin nombre', trim(c.rdb$constraint_name)), "
    "trim(c.rdb$constraint_type) || ' ' || coalesce(trim(x.rdb$update_rule) || '/' || "
    "trim(x.rdb$delete_rule) || '/' || trim(x.rdb$const_name_uq), '') || ' ' || coalesce((select "
    "cast(list(distinct hash(t.rdb$trigger_source)) as varchar(1000)) from rdb$check_constraints k "
    "join rdb$triggers t on t.rdb$trigger_name = k.rdb$trigger_name where k.rdb$constraint_name = "
    "c.rdb$constraint_name), '') from rdb$relation_constraints c left join rdb$ref_constraints x "
    "on x.rdb$constraint_name = c.rdb$constraint_name where c.rdb$constraint_type <> 'NOT NULL'",

    "select 'DISPARADOR ' || trim(t.rdb$trigger_name), coalesce(trim(t.rdb$relation_name), '') || "
    "' ' || t.rdb$trigger_type || ' ' || t.rdb$trigger_sequence || ' apagado ' || "
    "coalesce(t.rdb$trigger_inactive, 0) || ' ' || coalesce(hash(t.rdb$trigger_source), 0) from "
    "rdb$triggers t where t.rdb$system_flag = 0",

    "select 'PROCEDIMIENTO ' || trim(rdb$procedure_name), coalesce(rdb$procedure_type, 0) || ' ' "
    "|| coalesce(hash(rdb$procedure_source), 0) from rdb$procedures where rdb$system_flag = 0",

    "select 'PARAMETRO ' || trim(p.rdb$procedure_name) || '.' || p.rdb$parameter_type || '.' || "
    "p.rdb$parameter_number, trim(p.rdb$parameter_name) || ' ' || " TIPO_DE_CAMPO
    " || ' ' || coalesce(cast(p.rdb$default_source as varchar(200)), '') from "
    "rdb$procedure_parameters p join rdb$fields d on d.rdb$field_name = p.rdb$field_source where "
    "p.rdb$system_flag = 0",

    "select 'FUNCION ' || trim(f.rdb$function_name), coalesce(hash(f.rdb$function_source), 0) || ' "
    "' || coalesce((select cast(list(trim(coalesce(p.rdb$argument_name, '')) || ' ' "
    "|| " TIPO_DE_CAMPO
    ") as varchar(4000)) from (select * from rdb$function_arguments order by rdb$function_name, "
    "rdb$argument_position) p join rdb$fields d on d.rdb$field_name = p.rdb$field_source where "
    "p.rdb$function_name = f.rdb$function_name), '') from rdb$functions f where "
    "coalesce(f.rdb$system_flag, 0) = 0",

    "select 'NEGATIVA ' || trim(rdb$exception_name), rdb$message from rdb$exceptions where "
    "rdb$system_flag = 0",

    "select 'SECUENCIA ' || trim(rdb$generator_name), '' from rdb$generators where rdb$system_flag "
    "= 0",

    "select 'PERMISO ' || trim(rdb$user) || ' ' || trim(rdb$relation_name) || ' ' || "
    "trim(rdb$privilege) || ' ' || coalesce(trim(rdb$field_name), ''), rdb$user_type || ' ' || "
    "rdb$object_type || ' ' || coalesce(rdb$grant_option, 0) from rdb$user_privileges where "
    "rdb$user_type <> 8 and rdb$relation_name not starting with 'RDB$' and rdb$relation_name not "
    "starting with 'SQL$' and rdb$relation_name not starting with 'MON$' and rdb$relation_name not "
    "starting with 'SEC$'",
};

#undef TIPO_DE_CAMPO

} // namespace

QMap<QString, QString> retrato_esquema(Conexion& conexion) {
    QMap<QString, QString> retrato;
    Transaccion lectura(conexion, Transaccion::Modo::Lectura);
    for (const char* consulta : kConsultas) {
        Cursor filas(std::make_shared<Preparada>(conexion, lectura, QLatin1String(consulta)),
                     lectura, {});
        QMap<QString, QStringList> objetos; // los que el motor nombró comparten nombre
        while (filas.siguiente())
            objetos[filas.valor(0).texto()] << filas.valor(1).texto();
        for (auto i = objetos.begin(); i != objetos.end(); ++i) {
            i->sort();
            retrato[i.key()] = i->join(QStringLiteral(" | "));
        }
    }
    return retrato;
}

QStringList diferencias_de(const QMap<QString, QString>& hecha,
                           const QMap<QString, QString>& esperada) {
    QStringList textos;
    for (auto i = esperada.begin(); i != esperada.end(); ++i)
        if (!hecha.contains(i.key()))
            textos << QStringLiteral("falta %1").arg(i.key());
        else if (hecha[i.key()] != i.value())
            textos << QStringLiteral("%1 es «%2» y debe ser «%3»")
                          .arg(i.key(), hecha[i.key()], i.value());
    for (auto i = hecha.begin(); i != hecha.end(); ++i)
        if (!esperada.contains(i.key()))
            textos << QStringLiteral("sobra %1").arg(i.key());
    textos.sort();
    return textos;
}

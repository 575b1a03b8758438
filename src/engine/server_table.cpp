// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/server_table.h"

#include "engine/engine_fault.h"
#include "engine/sql.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

// The table as a value of a query.
std::string ClassOf(const std::string& table) { return "to_regclass(" + SqlText(SqlTable(table)) + ")"; }

// Queries of the statements that give a table again what it has, in the order in which they are to run. $ stands for
// the table. The library makes key and index of shapes itself.
constexpr const char* kBelongings[] = {
    "SELECT pg_get_indexdef(i.indexrelid) FROM pg_index i WHERE i.indrelid = $ AND NOT i.indisprimary "
    "AND NOT EXISTS (SELECT 1 FROM pg_constraint c WHERE c.conindid = i.indexrelid) "
    "AND NOT EXISTS (SELECT 1 FROM pg_attribute a JOIN pg_type t ON t.oid = a.atttypid "
    "WHERE a.attrelid = $ AND a.attnum = ANY (i.indkey) AND t.typname IN ('geometry', 'geography'))",
    "SELECT format('ALTER TABLE %s ADD CONSTRAINT %I %s', conrelid::regclass, conname, pg_get_constraintdef(oid)) "
    "FROM pg_constraint WHERE conrelid = $ AND contype IN ('u', 'c', 'x', 'f')",
    "SELECT pg_get_triggerdef(oid) FROM pg_trigger WHERE tgrelid = $ AND NOT tgisinternal",
    "SELECT format('COMMENT ON TABLE %s IS %L', $, obj_description($, 'pg_class')) "
    "WHERE obj_description($, 'pg_class') IS NOT NULL",
    "SELECT format('COMMENT ON COLUMN %s.%I IS %L', $, attname, col_description(attrelid, attnum)) FROM pg_attribute "
    "WHERE attrelid = $ AND attnum > 0 AND NOT attisdropped AND col_description(attrelid, attnum) IS NOT NULL",
    "SELECT format('GRANT %s ON TABLE %s TO %s%s', a.privilege_type, c.oid::regclass, CASE a.grantee WHEN 0 THEN "
    "'PUBLIC' ELSE quote_ident(pg_get_userbyid(a.grantee)) END, CASE WHEN a.is_grantable THEN ' WITH GRANT OPTION' "
    "ELSE '' END) FROM pg_class c CROSS JOIN LATERAL aclexplode(c.relacl) a WHERE c.oid = $ AND a.grantee <> "
    "c.relowner",
    "SELECT format('GRANT %s (%I) ON TABLE %s TO %s', a.privilege_type, t.attname, t.attrelid::regclass, CASE "
    "a.grantee "
    "WHEN 0 THEN 'PUBLIC' ELSE quote_ident(pg_get_userbyid(a.grantee)) END) FROM pg_attribute t CROSS JOIN LATERAL "
    "aclexplode(t.attacl) a WHERE t.attrelid = $ AND t.attnum > 0 AND NOT t.attisdropped",
    "SELECT format('ALTER TABLE %s OWNER TO %I', $, pg_get_userbyid(relowner)) FROM pg_class WHERE oid = $ "
    "AND pg_get_userbyid(relowner) <> current_user",
};

}  // namespace

std::string DependentsOf(GDALDataset& dataset, const std::string& table) {
  const std::string own = ClassOf(table);
  const std::string query =
      "SELECT DISTINCT coalesce(r.ev_class, c.conrelid)::regclass::text FROM pg_depend d "
      "LEFT JOIN pg_rewrite r ON d.classid = 'pg_rewrite'::regclass AND r.oid = d.objid "
      "LEFT JOIN pg_constraint c ON d.classid = 'pg_constraint'::regclass AND c.oid = d.objid AND c.contype = 'f' "
      "WHERE d.refclassid = 'pg_class'::regclass AND d.refobjid = " +
      own + " AND coalesce(r.ev_class, c.conrelid) <> d.refobjid ORDER BY 1";
  std::string names;
  for (const std::string& name : AskSqlTexts(dataset, query)) names += (names.empty() ? "" : ", ") + name;
  return names;
}

TableBelongings::TableBelongings(GDALDataset& dataset, std::string table) : table_(std::move(table)) {
  const GdalErrorScope errors;
  const std::string own = ClassOf(table_);
  std::string policies;
  for (const std::string& name :
       AskSqlTexts(dataset, "SELECT quote_ident(polname) FROM pg_policy WHERE polrelid = " + own + " ORDER BY 1")) {
    policies += (policies.empty() ? "" : ", ") + name;
  }
  if (!policies.empty()) {
    RaiseEngineFault("The table '" + table_ + "' can't be replaced, because its policies of rows would be lost: " +
                     policies + ". Drop them first, or name another table.");
  }
  for (const char* query : kBelongings) {
    for (std::string& statement : AskSqlTexts(dataset, Replace(query, "$", own))) {
      statements_.push_back(std::move(statement));
    }
  }
  if (errors.Failed()) {
    RaiseEngineFault("What the table '" + table_ + "' has besides its rows can't be read" + errors.Quote() + ".");
  }
}

void TableBelongings::PutAgain(GDALDataset& dataset, RunJournal& notes) const {
  for (const std::string& statement : statements_) {
    GdalErrorScope errors;
    RunSql(dataset, "SAVEPOINT belonging");
    RunSql(dataset, statement);
    if (errors.Failed()) {
      const std::string quote = errors.Quote();
      RunSql(dataset, "ROLLBACK TO SAVEPOINT belonging");
      notes.warnings.push_back(
          {"The table '" + table_ + "' had this, which the new one can't take" + quote + ": " + statement, 0, {}});
    }
    RunSql(dataset, "RELEASE SAVEPOINT belonging");
  }
}

}  // namespace tessarine::engine

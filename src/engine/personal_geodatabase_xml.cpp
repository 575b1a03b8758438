// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_xml.h"

#include <cpl_minixml.h>
#include <cpl_string.h>

#include <memory>

#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

constexpr const char* kNamespaces =
    " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xmlns:xs='http://www.w3.org/2001/XMLSchema'"
    " xmlns:typens='http://www.esri.com/schemas/ArcGIS/10.3'>";

std::string Escaped(const std::string& text) {
  char* escaped = CPLEscapeString(text.c_str(), static_cast<int>(text.size()), CPLES_XML);
  std::string result = escaped;
  CPLFree(escaped);
  return result;
}

std::string Element(const char* name, const std::string& content) {
  return std::string("<") + name + ">" + Escaped(content) + "</" + name + ">";
}

std::string Flag(const char* name, bool value) { return Element(name, value ? "true" : "false"); }

std::string ReferenceXml(const PersonalReference& reference) {
  std::string xml = "<SpatialReference xsi:type='typens:" + reference.kind + "'>";
  if (reference.kind != "UnknownCoordinateSystem") xml += Element("WKT", reference.text);
  xml += Element("XOrigin", ExactNumberText(reference.x_origin)) +
         Element("YOrigin", ExactNumberText(reference.y_origin)) +
         Element("XYScale", ExactNumberText(reference.xy_scale)) + Element("ZOrigin", "-100000") +
         Element("ZScale", "10000") + Element("MOrigin", "-100000") + Element("MScale", "10000") +
         Element("XYTolerance", ExactNumberText(reference.xy_tolerance)) + Element("ZTolerance", "0.001") +
         Element("MTolerance", "0.001") + Element("HighPrecision", "true");
  if (reference.kind == "GeographicCoordinateSystem") xml += Element("LeftLongitude", "-180");
  if (reference.number > 0) {
    xml += Element("WKID", std::to_string(reference.number)) + Element("LatestWKID", std::to_string(reference.number));
  }
  return xml + "</SpatialReference>";
}

std::string ItemXml(const ItemPlace& place, const char* type) {
  return Element("CatalogPath", place.path) + Element("Name", place.name) + Element("ChildrenExpanded", "false") +
         Element("DatasetType", type) + Element("DSID", std::to_string(place.number)) + Element("Versioned", "false") +
         Element("CanVersion", "false") + Element("ConfigurationKeyword", "") +
         Element("RequiredGeodatabaseClientVersion", "10.0");
}

const char* FieldTypeName(jet::ColumnType type) {
  switch (type) {
    case jet::ColumnType::Flag:
    case jet::ColumnType::Byte:
    case jet::ColumnType::Short:
      return "esriFieldTypeSmallInteger";
    case jet::ColumnType::Long:
      return "esriFieldTypeInteger";
    case jet::ColumnType::Single:
      return "esriFieldTypeSingle";
    case jet::ColumnType::Money:
    case jet::ColumnType::Double:
    case jet::ColumnType::Numeric:
      return "esriFieldTypeDouble";
    case jet::ColumnType::Date:
      return "esriFieldTypeDate";
    case jet::ColumnType::Guid:
      return "esriFieldTypeGUID";
    case jet::ColumnType::Ole:
    case jet::ColumnType::Binary:
      return "esriFieldTypeBlob";
    case jet::ColumnType::Text:
    case jet::ColumnType::Memo:
      return "esriFieldTypeString";
  }
  return "esriFieldTypeString";
}

std::string FieldXml(const std::string& name, const std::string& alias, const char* type, const std::string& more) {
  return "<GPFieldInfoEx xsi:type='typens:GPFieldInfoEx'>" + Element("Name", name) + Element("AliasName", alias) +
         Element("ModelName", name) + Element("FieldType", type) + more + "</GPFieldInfoEx>";
}

const char* ShapeTypeName(std::int32_t type) {
  switch (type) {
    case 1:
      return "esriGeometryPoint";
    case 2:
      return "esriGeometryMultipoint";
    case 3:
      return "esriGeometryPolyline";
    default:
      return "esriGeometryPolygon";
  }
}

std::string FieldsXml(const PersonalClass& description, const std::string& identifier_column) {
  const std::string required = Element("DomainFixed", "true") + Element("Required", "true");
  return "<GPFieldInfoExs xsi:type='typens:ArrayOfGPFieldInfoEx'>" +
         FieldXml(identifier_column, identifier_column, "esriFieldTypeOID",
                  Element("IsNullable", "false") + required + Element("Editable", "false")) +
         FieldXml(description.shape_column, description.shape_column, "esriFieldTypeGeometry",
                  Element("IsNullable", "true") + required) +
         "</GPFieldInfoExs>";
}

}  // namespace

std::string WorkspaceXml() {
  return std::string("<DEWorkspace xsi:type='typens:DEWorkspace'") + kNamespaces + Element("CatalogPath", "\\") +
         Element("Name", "") + Element("ChildrenExpanded", "false") +
         Element("WorkspaceType", "esriLocalDatabaseWorkspace") + Element("WorkspaceFactoryProgID", "") +
         Element("ConnectionString", "") +
         "<ConnectionInfo xsi:nil='true'/><Domains xsi:type='typens:ArrayOfDomain'></Domains>" +
         Element("MajorVersion", "3") + Element("MinorVersion", "0") + Element("BugfixVersion", "0") + "</DEWorkspace>";
}

std::string DatasetXml(const ItemPlace& place, const PersonalReference& reference) {
  return std::string("<DEFeatureDataset xsi:type='typens:DEFeatureDataset'") + kNamespaces +
         ItemXml(place, "esriDTFeatureDataset") + "<Extent xsi:nil='true'/>" + ReferenceXml(reference) +
         Element("ChangeTracked", "false") + "</DEFeatureDataset>";
}

std::string ClassXml(const ItemPlace& place, const PersonalClass& description, const std::string& identifier_column,
                     const PersonalReference& reference) {
  return std::string("<DEFeatureClassInfo xsi:type='typens:DEFeatureClassInfo'") + kNamespaces +
         ItemXml(place, "esriDTFeatureClass") + Flag("HasOID", true) + Element("OIDFieldName", identifier_column) +
         FieldsXml(description, identifier_column) + Element("CLSID", "{52353152-891A-11D0-BEC6-00805F7C4268}") +
         Element("EXTCLSID", "") + "<RelationshipClassNames xsi:type='typens:Names'></RelationshipClassNames>" +
         Element("AliasName", place.name) + Element("ModelName", "") + Flag("HasGlobalID", false) +
         Element("GlobalIDFieldName", "") + Element("RasterFieldName", "") +
         "<ExtensionProperties xsi:type='typens:PropertySet'><PropertyArray "
         "xsi:type='typens:ArrayOfPropertySetProperty'></PropertyArray></ExtensionProperties>"
         "<ControllerMemberships xsi:type='typens:ArrayOfControllerMembership'></ControllerMemberships>" +
         Element("FeatureType", "esriFTSimple") + Element("ShapeType", ShapeTypeName(description.shape_type)) +
         Element("ShapeFieldName", description.shape_column) + Flag("HasM", description.layout.has_m) +
         Flag("HasZ", description.layout.has_z) + Flag("HasSpatialIndex", true) + Element("AreaFieldName", "") +
         Element("LengthFieldName", "") + "<Extent xsi:nil='true'/>" + ReferenceXml(reference) +
         Element("ChangeTracked", "false") + "</DEFeatureClassInfo>";
}

ClassFacts ReadClassXml(const std::string& xml) {
  ClassFacts facts;
  struct Destroy {
    void operator()(CPLXMLNode* node) const { CPLDestroyXMLNode(node); }
  };
  CPLPushErrorHandler(CPLQuietErrorHandler);
  const std::unique_ptr<CPLXMLNode, Destroy> tree(xml.empty() ? nullptr : CPLParseXMLString(xml.c_str()));
  CPLPopErrorHandler();
  if (!tree) return facts;
  const auto text_of = [&](const char* element) {
    const CPLXMLNode* node = CPLSearchXMLNode(tree.get(), element);
    return std::string(node == nullptr ? "" : CPLGetXMLValue(node, nullptr, ""));
  };
  facts.length_column = text_of("LengthFieldName");
  facts.area_column = text_of("AreaFieldName");
  const CPLXMLNode* fields = CPLSearchXMLNode(tree.get(), "GPFieldInfoExs");
  for (const CPLXMLNode* field = fields == nullptr ? nullptr : fields->psChild; field; field = field->psNext) {
    if (field->eType != CXT_Element) continue;
    const std::string name = CPLGetXMLValue(field, "Name", ""), alias = CPLGetXMLValue(field, "AliasName", "");
    if (!alias.empty() && alias != name) facts.aliases[LowerCase(name)] = alias;
  }
  return facts;
}

std::string AddFieldXml(std::string xml, const jet::Column& column, const std::string& alias) {
  const std::size_t end = xml.find("</GPFieldInfoExs>");
  if (end == std::string::npos) return xml;
  std::string more = Element("IsNullable", "true");
  if (column.type == jet::ColumnType::Text) more = Element("Length", std::to_string(column.length / 2)) + more;
  return xml.insert(end, FieldXml(column.name, alias.empty() ? column.name : alias, FieldTypeName(column.type), more));
}

}  // namespace tessarine::engine

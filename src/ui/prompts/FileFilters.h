#pragma once

#include <QStringList>

#include <string_view>

namespace tarvex {

/// The filters of a file dialog, "XML (*.xml)|*.xml|All (*.*)|*.*", as Qt takes them: "XML (*.xml)" and "All (*)".
/// "*.*" means every file, also one without a dot. An empty text gives the filter for every file.
QStringList NameFilters(std::string_view filter);

/// An extension as Qt takes it: without a dot in front.
QString DefaultSuffix(std::string_view extension);

}

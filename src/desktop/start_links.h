#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "desktop/frame/captions.h"
#include "desktop/frame/recent_menu.h"

namespace zel {

/// Below the areas of the start window: examples to look at, and the files that were open last. As
/// long as there are none, a line says where to begin.
class StartLinks : public QWidget {
public:
    /// `open_example` gets the path of a case that stays as it is.
    StartLinks(const RecentParts& recent, const Session& session, Captions& captions,
               const std::string& examples_folder,
               const std::function<void(const std::string& path)>& open_example);
};

}  // namespace zel

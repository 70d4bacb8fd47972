// Sample knowledgebases and settings, for a page that has something to show.
#pragma once

namespace workbench {

/// Replaces what is there below the root key, and the files of the sample's base folder C:\Quillmark.
void fillWithSample();

}  // namespace workbench

// Walking the folders of explanation files.
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "paths/system_error_items.h"
#include "platform/platform.h"
#include "status/error_sites.h"
#include "translator/explanation_files.h"
#include "translator/languages.h"

namespace zqxlator {

namespace {

// The limits of the Windows listing this layout was made for, kept on every system so that an
// installation behaves alike everywhere.
constexpr size_t kMaxPath = 260;
constexpr size_t kMaxName = 256;
constexpr size_t kErrnoTextSize = 256;

bool acceptedExtension(std::string_view name) {
  size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return false;
  std::string_view extension = name.substr(dot + 1);
  return extension == "txt" || extension == "err";
}

// "internal_error" with the errno and its text, then "zqxlator_debug" with what failed.
void failWalk(zqerr_Status* status, const zqerr::Site& site, int crtErrno, const char* key, const char* what,
              std::string_view folder) {
  if (!zqerr::fail(status, site)) return;
  char text[kErrnoTextSize];
  size_t length = zqplatform::crtErrorText(crtErrno, text, sizeof text);
  zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "internal_error");
  w = zqerr::writeString(w, "api", "errno");
  w = zqerr::writeInt32(w, "code", crtErrno);
  w = zqsysq::closeObject(zqerr::writeString(w, "string", {text, length}));
  w = zqsysq::openObject(w, "zqxlator_debug");
  w = zqerr::writeString(w, key, what);
  zqerr::writeString(w, "path", folder);
}

// One walk's state: the folder's path and its listing, closed at the end.
class Walker {
 public:
  ~Walker() {
    if (listing_) zqplatform::closeFolderListing(listing_);
  }

  bool open(const std::string& folder, zqerr_Status* status) {
    int crtErrno = 0;
    if (folder.empty())
      crtErrno = zqplatform::kCrtEinval;
    else if (folder.size() + 2 >= kMaxPath)
      crtErrno = zqplatform::kCrtEnametoolong;
    if (crtErrno == 0) {
      path_ = folder;
      if (path_.back() == '\\' || path_.back() == '/') path_.pop_back();
      listing_ = zqplatform::openFolderListing(path_.c_str());
      if (!listing_) crtErrno = zqplatform::kCrtEnoent;
    }
    if (crtErrno != 0) failWalk(status, zqsite::kGferrorsparserOpenDir, crtErrno, "debug", "open dir failed", folder);
    return crtErrno == 0;
  }

  // The next entry, false at the end of the listing or after a failure.
  bool next(zqerr_Status* status) {
    zqplatform::ListingStep step = zqplatform::nextFolderEntry(listing_, &entry_);
    if (step == zqplatform::ListingStep::kEnd) return false;
    int crtErrno = step == zqplatform::ListingStep::kLost ? zqplatform::kCrtEnoent : 0;
    if (crtErrno == 0 && (entry_.name.size() >= kMaxName || path_.size() + entry_.name.size() + 3 >= kMaxPath))
      crtErrno = zqplatform::kCrtEnametoolong;
    if (crtErrno == 0) return true;
    failWalk(status, zqsite::kGferrorsparserFileInfo, crtErrno, "zqxlator", "get file info failed", path_);
    return false;
  }

  bool isExplanationFile() const { return entry_.regularFile && acceptedExtension(entry_.name); }
  std::string entryPath() const { return path_ + "/" + entry_.name; }

 private:
  std::string path_;
  zqplatform::FolderListing* listing_ = nullptr;
  zqplatform::FolderEntry entry_;
};

}  // namespace

void walkExplanationFolder(const std::string& folder, int32_t code, zqhtl::String* text, zqerr_Status* status) {
  text->clear();
  if (!zqerr::isOpen(status)) return;
  std::unique_ptr<Walker> walker(new (std::nothrow) Walker);
  if (!walker) {
    if (ZQ_FAIL(status, kGferrorsparserMemoryFull))
      zqerr::writeString(zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug"), "zqxlator",
                         "failed to allocate memory");
    return;
  }
  if (!walker->open(folder, status)) return;
  while (walker->next(status)) {
    if (!walker->isExplanationFile()) continue;
    readExplanationFile(walker->entryPath().c_str(), code, text, status);
    if (!zqerr::isOpen(status) || !text->empty()) return;
  }
}

void searchExplanations(const std::string& base, int32_t code, uint32_t language, zqhtl::String* text,
                        zqerr_Status* status) {
  text->clear();
  const char* folderName = languageFolder(language, status);
  walkExplanationFolder(base + "\\" + folderName, code, text, status);
  if (!zqerr::isOpen(status) || !text->empty()) return;
  walkExplanationFolder(base, code, text, status);
}

}  // namespace zqxlator

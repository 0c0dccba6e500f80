// INI files on disk for the development host's logging-tool service.
//
// Files are parsed with Boost.PropertyTree's INI parser: a tree of sections,
// each holding its keys in file order. Sections and keys are looked up by
// their exact name (a name may contain "."; it is never split into a path).
//
// Every write replaces the whole file atomically: the new text goes to a
// temporary file in the target's directory, which then takes the target's
// name by a rename (flushed first, with its directory after, unless the
// write asks for no flush; see Flush). A reader thus sees the old file or the
// new one, never a torn one, and a failed write leaves the old file as it was
// and no temporary file behind.
//
// No function throws; failures come back as a result and a message that
// names the file (and the line, for a malformed file).
#ifndef KTL_DEVHOST_INI_STORE_H
#define KTL_DEVHOST_INI_STORE_H

#include <boost/property_tree/ptree.hpp>
#include <string>

namespace devhost {

using IniTree = boost::property_tree::ptree;

enum class IniRead {
  kOk,       // the tree holds the file's sections
  kMissing,  // the file does not exist
  kError,    // unreadable or malformed; the message says why
};

// Reads and parses strPath into tree (replaced only on kOk). A duplicate
// section, a duplicate key in one section, a line that is neither a comment
// (";" or "#"), a section header nor "key=value", and a key before the first
// section make the file malformed.
IniRead ReadIniFile(const std::string& strPath, IniTree& tree, std::string& strError);

// The two halves of ReadIniFile: the file's bytes as they are, and their
// parse (strPath only names the file in messages).
IniRead ReadTextFile(const std::string& strPath, std::string& strContent, std::string& strError);
bool ParseIniText(const std::string& strContent, const std::string& strPath, IniTree& tree, std::string& strError);

// How far a replacement has gone when the write returns. Either way the file
// is replaced by a rename, so readers, and a writer killed midway, see the old
// or the new content, never a mix.
enum class Flush {
  kToDisk,  // content and rename are on disk: the change survives a power cut
  kNone,    // left to the kernel: a power cut may lose the latest changes
            // or leave the file empty (the content may not be on disk when
            // the rename is); for working copies, whose readers take an empty
            // file for none
};

// Writes tree as INI text to strPath, atomically. False, with strError set,
// when the file could not be replaced; the old file is then unchanged.
bool WriteIniFile(const std::string& strPath, const IniTree& tree, std::string& strError,
                  Flush eFlush = Flush::kToDisk);

// Replaces strPath by strContent, atomically, as above.
bool WriteFileAtomically(const std::string& strPath, const std::string& strContent, std::string& strError,
                         Flush eFlush = Flush::kToDisk);

// Removes strPath and, with Flush::kToDisk, flushes its directory. True also
// when the file did not exist.
bool RemoveFile(const std::string& strPath, std::string& strError, Flush eFlush = Flush::kToDisk);

// True when something exists at strPath.
bool isPresent(const std::string& strPath);

// The value of key strKey in section strSection, or nullptr when either is
// absent.
const std::string* FindIniValue(const IniTree& tree, const std::string& strSection, const std::string& strKey);

// True when the entry would read back unchanged: a non-empty section name
// without "]", a non-empty key without "=" that does not start like a
// comment or a section, no line breaks, no blanks at either end of any of
// the three. Otherwise strError says what is wrong.
bool isStorableIniEntry(const std::string& strSection, const std::string& strKey, const std::string& strValue,
                        std::string& strError);

// Sets key strKey of section strSection to strValue, appending the section
// or the key when it is absent.
void SetIniValue(IniTree& tree, const std::string& strSection, const std::string& strKey, const std::string& strValue);

}  // namespace devhost

#endif

// SPDX-License-Identifier: Apache-2.0
// Reads a camera dump line by line into a report. Sections begin with their titles, in the spellings of all
// versions, and end where another section begins.
#pragma once

#include "base/Text.h"
#include "device/Report.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qzcam {

class DumpReader {
  public:
    DumpReader(std::string_view text, size_t firstLine) : mText(text), mFirstLine(firstLine) {}

    Report read();

  private:
    enum class Region { Other, Events, Camera, Client, Array, Vendor, Shim, Monitor, HalText };

    void take();
    void takeInRegion();
    void end();
    void reportEarlyEnd(size_t line);

    bool title();
    bool framedTitle();
    bool moduleTitle();
    bool mark();
    bool errorLine();
    bool endsHalText() const;
    bool isPlaceOfArrays() const;
    void enter(Region region);
    void leave(bool early = false);

    void openCamera(std::string_view name, std::string_view version);
    bool hasRoomFor(std::string_view name);
    void openDynamic(std::string_view id);
    void openProvider(std::string_view title);
    void setHeading();
    void cameraLine();
    void clientLine();
    bool openLine();
    void globalLine();
    void eventLine();

    void openArray();
    void setPlace(MetadataArray& array);
    void closeArray(bool early);
    void arrayLine();
    void valueLine();
    bool isComplete(const ArrayEntry& entry) const;
    bool isStillArray() const;
    bool isEntry() const;
    bool strayEntry();

    void openVendor();
    void openVendorBlock();
    void openTagList();
    void closeBlock(bool early);
    void vendorLine();

    void openShim();
    void shimLine();
    bool isShimLine() const;
    void addShimParameter(std::string_view text);

    void openHalText() { openText(Region::HalText, mReport.halTexts); }
    void openMonitor() { openText(Region::Monitor, mReport.monitors); }
    void openText(Region region, std::vector<TextBlock>& blocks);
    void closeText();
    void openTraces();

    void addUnused(UnusedPart::Kind kind, std::string name);
    void addGarbled(std::string_view text) { addUnused(UnusedPart::Kind::GarbledLine, excerpt(text)); }
    template <typename List>
    void checkCount(const List& list, size_t read, const std::string& name, const char* items, bool early);
    void finishCameras();
    void finishCamera(ReportedCamera& at, const ArrayEntry& entry);
    void addPhysicalId(std::string_view of, std::string id);
    void cutAt(size_t line, std::string text);
    ReportedCamera& camera(std::string_view id);
    size_t offset() const { return static_cast<size_t>(mLine.data() - mText.data()); }

    std::string_view mText;
    size_t mFirstLine;
    Report mReport;
    Region mRegion = Region::Other;
    Region mOuter = Region::Other;  // the region around an array
    size_t mNumber = 0;
    std::string_view mLine;
    std::string_view mBody;     // the line without blanks around it
    std::string_view mHeading;  // the previous line, which may be the heading of an array
    std::string_view mCamera;   // id of the present camera
    std::string_view mProvider;
    size_t mIndent = 0;
    size_t mArrayIndent = 0;
    size_t mEntryIndent = 0;
    bool mStaticSeen = false;    // the static section of the present camera was read
    bool mBlockOpen = false;     // the last vendor block is open
    size_t mUnusedTags = 0;      // tags of the last block that are not read
    bool mEntryGarbled = false;  // one of its value lines is garbled
    bool mInEntry = false;       // value lines belong to the last entry of the array
    bool mPrevious = false;      // within closed sessions
    bool mEnded = false;         // the service did not answer in time
    bool mStartedService = false;
    bool mStartedModule = false;  // 7.1
    bool mTraces = false;         // the last section but those of previous sessions
    size_t mAnnouncedCameras = 0;
    size_t mModuleCameras = 0;  // "Camera N information"
    std::vector<TextBlock>* mTexts = nullptr;
};

}  // namespace qzcam

#include "check/Check.h"

#include "LibraryLog.h"
#include "Text.h"
#include "check/Checkers.h"
#include "convert/MeshFile.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QLatin1StringView codeOf(Inspection const& inspection)
{
    if (!inspection.problemCode.isEmpty())
        return inspection.problemCode;
    if (inspection.code == ExitCode::Malformed)
        return "malformed"_L1;
    return inspection.code == ExitCode::Unsupported ? "unsupported"_L1 : "unreadable"_L1;
}

void addProblem(Inspection const& inspection, Findings& findings)
{
    findings.fail(inspection.code, codeOf(inspection), inspection.problem);
}

bool passesInspection(Check& check)
{
    Inspection inspection;
    check.format.inspect(check.source, inspection);
    if (inspection.code != ExitCode::Ok)
        addProblem(inspection, check.findings);
    return inspection.code == ExitCode::Ok;
}

// What is found out about images goes further than what the library says.
bool isExplained(QString const& message)
{
    return message.startsWith("Texture file"_L1) || message.contains("--image-limit"_L1);
}

// By its suffix, as everybody reads it; with a wrong one there is nothing to be learned from that.
void checkContent(Check& check)
{
    MeshSource const* const source = meshSourceFor(check.source.path);
    if (source == nullptr || hasWrongSuffix(check.file))
        return;
    MeshFile file;
    LogCapture const log;
    bool const isRead = source->read(check.source.path, file, {});
    for (QString const& message : log.messages()) {
        if (!isExplained(message))
            check.findings.add("log"_L1, message);
    }
    if (isRead)
        checkMesh(file.mesh, check.findings);
}

} // namespace

void checkMeshFile(Check& check)
{
    if (passesInspection(check))
        checkContent(check);
}

void checkStl(Check& check)
{
    if (!passesInspection(check))
        return;
    checkStlFacets(check.source, check.findings);
    checkContent(check);
}

void checkPly(Check& check)
{
    if (!passesInspection(check))
        return;
    checkPlyTexture(check);
    checkContent(check);
}

Findings checkFile(QString const& path, CheckContext& context)
{
    Inspection inspection;
    std::optional<RecognisedFile> const file = recogniseFile(path, inspection);
    if (!file) {
        Findings findings;
        addProblem(inspection, findings);
        return findings;
    }
    Check check(*file, context);
    if (hasWrongSuffix(*file))
        check.findings.fail(ExitCode::Unsupported, "wrong-suffix"_L1, wrongSuffixProblem(*file->format));
    auto* const checker = file->format->check != nullptr ? file->format->check : checkMeshFile;
    checker(check);
    return std::move(check.findings);
}

} // namespace tool

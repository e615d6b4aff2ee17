#include "tags/FacetFile.h"
#include "tags/TagWork.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace tool::tags {

namespace {

struct Input
{
    QString path;
    /// Gives every facet the tag that was asked for, or leaves all as they are.
    Rule rule;
    TaggedFile file;
};

using Inputs = std::vector<std::unique_ptr<Input>>;

// "31=tooth.stl" reads like the rule "*=31"; the tag alone sets the subTag to 0.
std::unique_ptr<Input> inputFrom(QString const& text)
{
    auto input = std::make_unique<Input>();
    qsizetype const equals = text.indexOf(u'=');
    std::optional<Rule> const rule = equals < 1 ? std::nullopt : ruleFrom(u"*="_s + text.left(equals));
    bool const isTagged = rule && rule->toTag;
    input->path = isTagged ? text.mid(equals + 1) : text;
    if (isTagged)
        input->rule = {{}, {}, rule->toTag, rule->toSubTag.value_or(0)};
    return input;
}

ExitCode openAll(QStringList const& texts, Inputs& inputs, Console& console)
{
    for (QString const& text : texts) {
        inputs.push_back(inputFrom(text));
        Input& input = *inputs.back();
        if (Problem const problem = input.file.open(input.path))
            return reported(problem, input.path, console);
    }
    return ExitCode::Ok;
}

ExitCode copyAll(Inputs const& inputs, FacetFile& target, Console& console)
{
    for (auto const& input : inputs) {
        Problem const problem = input->file.forEach([&](QByteArrayView record, stl::FacetTag tag) {
            target.append(record, input->rule.applied(tag));
        });
        if (problem)
            return reported(problem, input->path, console);
    }
    return ExitCode::Ok;
}

} // namespace

ExitCode merge(MergeOptions const& options, Console& console)
{
    Inputs inputs;
    if (ExitCode const code = openAll(options.inputs, inputs, console); code != ExitCode::Ok)
        return code;
    FacetFile target(options.out);
    if (Problem const problem = target.open(inputs.front()->file.header(), options.mayReplace))
        return reported(problem, options.out, console);
    if (ExitCode const code = copyAll(inputs, target, console); code != ExitCode::Ok)
        return code;
    Problem problem = target.finish();
    if (!problem)
        problem = target.commit();
    return reported(problem, options.out, console);
}

} // namespace tool::tags

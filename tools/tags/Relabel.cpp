#include "Text.h"
#include "tags/FacetFile.h"
#include "tags/TagWork.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool::tags {

namespace {

struct CountedRule
{
    QString text;
    Rule rule;
    qint64 facets = 0;
};

Problem rulesFrom(QStringList const& texts, std::vector<CountedRule>& rules)
{
    for (QString const& text : texts) {
        std::optional<Rule> const rule = ruleFrom(text);
        if (!rule)
            return {ExitCode::Usage,
                    Text::tr("\"%1\": expected a rule such as 3=31, 4/1=32/0 or *=1; tags go from 0 to "
                             "255, subTags from -128 to 127")
                        .arg(text)};
        rules.push_back({text, *rule});
    }
    return {};
}

stl::FacetTag relabelled(stl::FacetTag const& tag, std::vector<CountedRule>& rules)
{
    auto const rule = std::find_if(rules.begin(), rules.end(), [&tag](CountedRule const& candidate) {
        return candidate.rule.appliesTo(tag);
    });
    if (rule == rules.end())
        return tag;
    ++rule->facets;
    return rule->rule.applied(tag);
}

} // namespace

ExitCode relabel(RelabelOptions const& options, Console& console)
{
    std::vector<CountedRule> rules;
    TaggedFile source;
    Problem problem = rulesFrom(options.rules, rules);
    if (!problem)
        problem = source.open(options.in);
    if (problem)
        return reported(problem, options.in, console);
    FacetFile target(options.out);
    if (Problem const refused = target.open(source.header(), options.mayReplace))
        return reported(refused, options.out, console);
    problem = source.forEach(
        [&](QByteArrayView record, stl::FacetTag tag) { target.append(record, relabelled(tag, rules)); });
    if (problem)
        return reported(problem, options.in, console);
    problem = target.finish();
    if (!problem)
        problem = target.commit();
    for (CountedRule const& rule : rules) {
        if (!problem && rule.facets == 0)
            console.warning(Text::tr("%1: no facet for the rule %2").arg(options.in, rule.text));
    }
    return reported(problem, options.out, console);
}

} // namespace tool::tags

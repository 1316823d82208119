#pragma once
// A forecast provider that answers what the test says and notes each request.

#include <deque>
#include <string>
#include <vector>

#include "net/WeatherUpstream.h"

namespace zonara::test {

class WeatherFakeUpstream final : public WeatherUpstream {
  public:
    // Answers in turn; the last one repeats.
    std::deque<UpstreamAnswer> answers;
    std::vector<UpstreamRequest> requests;

    UpstreamAnswer get(const UpstreamRequest& request) override {
        requests.push_back(request);
        if (answers.empty())
            return {};
        UpstreamAnswer answer = answers.front();
        if (answers.size() > 1)
            answers.pop_front();
        return answer;
    }
};

inline UpstreamAnswer answered(long status, std::string body, std::string expires = {},
                               std::string lastModified = {}) {
    UpstreamAnswer answer;
    answer.answered = true;
    answer.status = status;
    answer.body = std::move(body);
    answer.expires = std::move(expires);
    answer.lastModified = std::move(lastModified);
    return answer;
}

} // namespace zonara::test

#include "BatchProcess.h"
#include "CommandReference.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// Calls commands with values of their types and of others, in one program with a real view.
constexpr char kTry[] = R"scheme(
(define seed 4711)
(define (some n)
  (set! seed (modulo (+ (* seed 1103515245) 12345) 2147483648))
  (modulo (quotient seed 65536) n))
(define (one-of . choices) (list-ref choices (some (length choices))))
(define face (app:pick-face 5 5 500 0 0 -1 1))
(define texts
  (list "" "text" "parallel" "face" "x" "z" "left" "Ctrl-left" "a\x00;b" "\u4e2d'()\\\n"
        (make-string 10000 #\x) "absent/folder/x.png" "%s%n" "enclosed" "front" "Escape" "press"))
(define numbers
  (list 0 -1 1 2 3 7 640 0.5 1e300 -1e-300 1e38 (/ 0. 0.) (/ -1. 0.) 1/3
        9223372036854775807 -9223372036854775808 100000000000000000000))
(define oddities
  (list #t #f '() '(0 0 0) '(1e300 -1e300 1e300) '(255 0 300) '((0 0 0) (1 0 0) (0 1 0)) '(0 1 2)
        '(0 1 2 99999999) '(-1 0 1) '(("left" "pan")) 'body 'enclosed car #\a #u8(1 2) 1+2i
        (current-output-port) face (list face #f) (list (list face))))
(define (number) (list-ref numbers (some (length numbers))))
(define (any) (apply one-of (apply one-of (list texts numbers oddities))))
(define (fitting type)
  (case type
    ((boolean) (one-of #t #f))
    ((integer) (some 300))
    ((number) (one-of (/ (some 1000) 500.) (number)))
    ((point vector) (one-of '(0 0 0) '(1 2 3) (list (number) (number) (number))))
    ((string path) (apply one-of texts))
    ((entity) face)
    ((list) (one-of '() (list face) (list (any) (any))))
    (else (any))))
(define (arguments types) (map (lambda (type) (if (= 0 (some 4)) (any) (fitting type))) types))
(define ends 0)
(define errors 0)
(define (try command types required)
  (do ((i 0 (+ i 1))) ((= i calls))
    (catch #t
      (lambda ()
        (let ((count (+ required (some (+ 1 (- (length types) required))))))
          (apply command (arguments (list-head types count)))
          (set! ends (+ ends 1))))
      (lambda (key . rest) (set! errors (+ errors 1))))))
)scheme";

class HostileScripts : public testing::Test
{
protected:
    /// @return what a program says that tries all commands of some families.
    Outcome tryAll(const std::vector<std::string>& families, int calls = 15) const
    {
        m_process.Write("part.stl", BoxStl(100, 100, 50));
        std::ostringstream script;
        script << kTry << "(define calls " << calls << ")\n";
        for (const CommandEntry& command : ReadCommandReference()) {
            const std::string family = command.name.substr(0, command.name.find(':'));
            // These end the program, or wait for somebody; a menu without the item ends the script.
            if (std::find(families.begin(), families.end(), family) == families.end() ||
                command.name == "app:quit" || command.name == "app:pause" ||
                command.name == "input:menu")
                continue;
            script << "(try " << command.name << " '(";
            for (const std::string& type : command.types)
                script << type << ' ';
            script << ") " << command.required
                   << ")\n(view:animate #f)\n(input:mouse \"move\" 5 5)\n";
        }
        script << "(app:print \"ends: \" ends \", errors: \" errors)\n";
        m_process.Write("hostile.scm", script.str());
        return m_process.Run(
            {"part.stl", "--no-journal", "--size", "200x100", "--script", "hostile.scm"});
    }

    static int numberAfter(const std::string& text, const std::string& words)
    {
        const std::size_t at = text.rfind(words);
        return at == std::string::npos ? -1 : std::stoi(text.substr(at + words.size()));
    }

    BatchProcess m_process;
};

TEST_F(HostileScripts, LeaveTheViewStanding)
{
    const Outcome outcome = tryAll({"view", "measure"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_GT(numberAfter(outcome.output, "\nends: "), 200) << outcome.output;
    EXPECT_GT(numberAfter(outcome.output, ", errors: "), 200);
}

TEST_F(HostileScripts, LeaveTheSelectionStanding)
{
    const Outcome outcome = tryAll({"sel", "entity"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_GT(numberAfter(outcome.output, "\nends: "), 60) << outcome.output;
}

TEST_F(HostileScripts, LeaveTheApplicationStanding)
{
    const Outcome outcome = tryAll({"app"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_GT(numberAfter(outcome.output, "\nends: "), 100) << outcome.output;
}

TEST_F(HostileScripts, LeaveTheInputStanding)
{
    const Outcome outcome = tryAll({"input"}, 80);

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_GT(numberAfter(outcome.output, "\nends: "), 10) << outcome.output;
}

} // namespace

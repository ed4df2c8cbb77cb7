#include "SchemeRuntime.h"

namespace OrvikScheme {

const char kSchemeRuntime[] = R"scheme(
(define user-module (resolve-module '(guile-user)))
(define engine-module (current-module))

;; Frames of these sources are the machinery below a script, not the script.
(define (machinery? file)
  (or (not (string? file))
      (let ((begins? (lambda (prefix) (string-prefix? prefix file))))
        (or (begins? "ice-9/") (begins? "system/") (begins? "language/") (begins? "srfi/")))))

;; (file line column) of a frame, or #f; lines and columns count from 1.
(define (frame-place frame)
  (let ((source (frame-source frame)))
    (and source
         (not (machinery? (cadr source)))
         (list (cadr source) (+ 1 (caddr source)) (+ 1 (cdddr source))))))

(define (place->string place)
  (format #f "~a:~a:~a" (car place) (cadr place) (caddr place)))

;; The innermost places of a stack that lie in scripts, as ((name . place) ...), at most limit.
(define (script-places stack limit)
  (let loop ((i 0) (found '()))
    (if (or (>= i (stack-length stack)) (>= (length found) limit))
        (reverse found)
        (let* ((frame (stack-ref stack i)) (place (frame-place frame)))
          (loop (+ i 1)
                (if place (cons (cons (frame-procedure-name frame) place) found) found))))))

(define (error-text key args)
  (case key
    ((pellux-error) (car args))
    ((pellux-cancelled) "Cancelled.")
    ((pellux-stack-overflow)
     (format #f "The recursion is too deep (more than ~a MB of stack)." (car args)))
    ((stack-overflow) "The recursion is too deep.")
    ((numerical-overflow) (format #f "In procedure ~a: ~a" (car args) (cadr args)))
    ((syntax-error) (syntax-error-text args))
    ((quit) "exit was called; a script ends by running to its end.")
    ((unbound-variable) (unbound-text (caaddr args)))
    ((read-error) (strip-read-place (apply format #f (cadr args) (caddr args))))
    (else (string-trim-right
           (call-with-output-string
             (lambda (port) (print-exception port #f key args)))))))

;; The reader and the expander give who, what, where, the form and the part of it.
(define (syntax-error-text args)
  (let ((who (car args)) (what (cadr args)) (form (or (list-ref args 4) (list-ref args 3))))
    (format #f "Syntax error: ~a~a~a" (if who (format #f "~a: " who) "") what
            (if form (format #f " in ~s" form) ""))))

;; Names the command that was most likely meant.
(define (unbound-text name)
  (let ((nearest (%suggest (symbol->string name))))
    (if nearest
        (format #f "Unbound variable: ~a; did you mean ~a?" name nearest)
        (format #f "Unbound variable: ~a" name))))

;; The reader puts the place before its message; the report does that already.
(define (strip-read-place text)
  (let ((match (string-contains text ": ")))
    (if (and match (string-index (substring text 0 match) #\:))
        (substring text (+ match 2))
        text)))

;; A text that ends too early is reported where its last form begins.
(define (read-error-place key args fallback)
  (if (and (eq? key 'read-error) (not (string-contains (cadr args) "unexpected end of input")))
      (let* ((text (cadr args)) (end (string-contains text ": ")))
        (or (and end
                 (let ((fields (string-split (substring text 0 end) #\:)))
                   (and (>= (length fields) 3)
                        (let* ((tail (list-tail fields (- (length fields) 2)))
                               (line (string->number (car tail)))
                               (column (string->number (cadr tail))))
                          (and line column (list (car fallback) line column))))))
            fallback))
      fallback))

(define (syntax-error-place args fallback)
  (let ((line (and (list? (caddr args)) (assq-ref (caddr args) 'line))))
    (if line
        (list (car fallback) (+ 1 line) (+ 1 (or (assq-ref (caddr args) 'column) 0)))
        fallback)))

;; Writes "file:line:column: message" and the calls that led there.
(define (report key args fallback places)
  (let ((port (current-error-port))
        (place (cond ((pair? places) (cdar places))
                     ((eq? key 'syntax-error) (syntax-error-place args fallback))
                     (else (read-error-place key args fallback)))))
    (format port "~a: ~a\n" (place->string place) (error-text key args))
    (for-each (lambda (entry)
                (format port "    in ~a at ~a\n" (or (car entry) "top level")
                        (place->string (cdr entry))))
              (if (null? places) '() (cdr places)))))

;; Forms that only call known procedures with constants gain nothing from being compiled; all others
;; do: loops run faster, and errors know their line.
(define (plain? form)
  (cond ((not (pair? form)) #t)
        ((eq? (car form) 'quote) #t)
        ((eq? (car form) 'define)
         (and (list? form) (= (length form) 3) (symbol? (cadr form)) (plain? (caddr form))))
        (else (and (list? form) (procedure-name? (car form)) (every-plain? (cdr form))))))

(define (every-plain? forms)
  (or (null? forms) (and (plain? (car forms)) (every-plain? (cdr forms)))))

(define (procedure-name? name)
  (and (symbol? name)
       (let ((variable (module-variable user-module name)))
         (and variable (variable-bound? variable) (procedure? (variable-ref variable))))))

(define compile-form #f)

(define (evaluate syntax)
  (let ((form (syntax->datum syntax)))
    (if (plain? form)
        (eval form user-module)
        (begin
          (unless compile-form
            (let ((compile (module-ref (resolve-interface '(system base compile)) 'compile)))
              (set! compile-form
                    (lambda (form)
                      (compile form #:env user-module #:optimization-level 0
                               #:warning-level 0)))))
          (compile-form syntax)))))

(define (form-place syntax fallback)
  (let ((source (and (syntax? syntax) (syntax-source syntax))))
    (if source
        (list (car fallback)
              (+ 1 (or (assq-ref source 'line) 0))
              (+ 1 (or (assq-ref source 'column) 0)))
        fallback)))

;; A run is cancelled by an abort to this prompt: unlike an exception it passes by every handler of
;; the script.
(define cancel-tag (make-prompt-tag "pellux-cancel"))
(define running? #f)

;; Runs every form of a text. Answers #t and writes the last value, unless it is unspecified, or
;; reports the error and answers #f.
(define (run-text text file line column stack-megabytes)
  (let ((port (open-input-string text))
        (place (list file line column)))
    (define (fail key args places)
      (report key args place places)
      #f)
    (define (run-forms)
      (let loop ((value *unspecified*))
        (let ((form (read-syntax port)))
          (if (eof-object? form)
              (unless (unspecified? value)
                (write value)
                (newline))
              (begin
                (set! place (form-place form place))
                (loop (evaluate form))))))
      #t)
    (set-port-filename! port file)
    (set-port-line! port (- line 1))
    (set-port-column! port (- column 1))
    (let ((good (call-with-prompt cancel-tag
                  (lambda ()
                    (set! running? #t)
                    ;; An interrupt that came before it could be heard.
                    (end-if-cancelled)
                    (run-guarded run-forms fail stack-megabytes))
                  (lambda (continuation)
                    (fail 'pellux-cancelled '() '())))))
      (set! running? #f)
      (force-output (current-output-port))
      (force-output (current-error-port))
      good)))

;; Calls a procedure in the user's module with a limited stack; errors go to fail.
(define (run-guarded procedure fail stack-megabytes)
  (let ((places '()))
    (catch #t
      (lambda ()
        (call-with-stack-overflow-handler
          (* stack-megabytes 131072)
          (lambda ()
            (save-module-excursion
              (lambda ()
                (set-current-module user-module)
                (procedure))))
          (lambda () (throw 'pellux-stack-overflow stack-megabytes))))
      (lambda (key . args) (fail key args places))
      (lambda (key . args)
        (unless (memq key '(pellux-cancelled pellux-stack-overflow read-error))
          (set! places (script-places (make-stack #t) 6)))))))

(define (end-if-cancelled)
  (when (and running? (%cancel-pending?))
    (set! running? #f)
    (abort-to-prompt cancel-tag)))

;; Bound to the worker: the signal that asks a run to end arrives here, between two instructions.
(define (install-interrupt signal worker)
  (sigaction signal (lambda (number) (end-if-cancelled)) SA_RESTART worker))

(define (bind-command name index)
  (let ((symbol (string->symbol name)))
    (module-define! user-module symbol
                    (let ((command (lambda arguments (%invoke index arguments))))
                      (set-procedure-property! command 'name symbol)
                      command))))

(define (name->string name)
  (cond ((symbol? name) (symbol->string name))
        ((string? name) name)
        ((procedure? name) (let ((symbol (procedure-name name)))
                             (if symbol (symbol->string symbol) "")))
        (else (throw 'pellux-error "help: expected the name of a command, as in (help 'view:iso)"))))

(define (help . names)
  (display (if (null? names)
               (%help #f)
               (%help (name->string (car names))))))

(define (apropos pattern)
  (display (%apropos (name->string pattern))))

;; Ending the process from the worker would leave the application half alive.
(module-define! user-module 'primitive-exit exit)

;; A script is known by the name it was given; what it loads lies beside it, wherever that is.
;; Guile looks for a relative folder in its load path alone.
(set! (@@ (guile) load-in-vicinity)
      (let ((load-beside load-in-vicinity))
        (lambda (folder name . reader)
          (apply load-beside
                 (if (absolute-file-name? folder) folder (in-vicinity (getcwd) folder))
                 name
                 reader))))

;; Symbols in bars are read as one symbol, as the splitter of forms takes them.
(read-enable 'r7rs-symbols)

(module-define! user-module 'help help)
(module-define! user-module 'apropos apropos)
)scheme";

} // namespace OrvikScheme

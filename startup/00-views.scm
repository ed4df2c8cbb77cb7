;; Short names for what is typed most often.

(define fit view:zoom-all)

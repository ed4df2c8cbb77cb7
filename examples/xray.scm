;; Selects the bolts and draws everything else as through frosted glass.
;; pellux-batch frames.step --up z --size 640x400 --script xray.scm --output xray.png

(define bolts (sel:by-name "bolt*" "body"))
(view:xray #t)
(view:iso)
(view:zoom-to-box 12 12 22 88 88 112)
(app:print "selected: " (length (sel:get)))

;; What is seen through is picked all the same.
(define ent (app:pick-face 30 30 1000 0 0 -1 0))
(app:print "a ray down meets: " (if ent (entity:name (entity:body ent)) "nothing"))

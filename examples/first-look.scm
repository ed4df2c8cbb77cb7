;; A first look at a model: where it is, how large it is, and a picture from a corner.
;; Run it behind a model: pellux-batch gear.stl --script first-look.scm --output gear.png

(define box (doc:bounding-box))

(define (extent axis)
  (- (list-ref box (+ axis 3)) (list-ref box axis)))

(app:print "loaded:  " (doc:contents))
(app:print "size:    " (extent 0) " x " (extent 1) " x " (extent 2))

;; A ray from above, down onto the rim: what does it hit?
(define ent (app:pick-entity 0 -31 100 0 0 -1 0.5))
(app:print "a ray down onto the rim hits: " (if ent (entity:type ent) "nothing"))

(view:iso)
(view:zoom-all)
